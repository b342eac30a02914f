#pragma once

#include <qnamespace.h>

class QKeyEvent;

/// Shortcuts by the place of a key, for keyboards whose layout has no Latin letter or no bare digit there.
namespace host {

/// The key that a US keyboard has at this place, without modifiers; 0 for a place without a letter, digit or
/// sign. `nativeScanCode` as X11 and Wayland give it.
int keyOfPlace(unsigned nativeScanCode);

/// The shortcut that a press stands for by its place, key and modifiers as `QKeySequence` takes them. 0 where
/// the layout itself says what the press is: a Latin letter, a digit, a key without a letter, or a sign that
/// stands where US keyboards have a sign.
int shortcutOfPlace(const QKeyEvent& event);

/// The shortcut that a person means by a press when choosing one: by the place of the key where that decides,
/// else what the layout says. A sign stands for itself, whatever Shift it takes. 0 for a modifier alone.
int shortcutMeant(const QKeyEvent& event);

} // namespace host
