#pragma once

/// Marks what the library offers to hosts. Everything of this project is compiled with hidden visibility, so
/// that a class or function without this mark cannot be reached from outside of the shared library and is
/// free to change. Nothing to be done by a host: the mark reads the same on both sides.
#if defined(__GNUC__)
#define DEPTH_EXPORT __attribute__((visibility("default")))
#else
#define DEPTH_EXPORT
#endif
