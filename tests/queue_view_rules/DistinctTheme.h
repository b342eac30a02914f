#pragma once

namespace queue_view_rules {

/// Puts a theme in force, once, in which every colour key has a colour of its own and the fonts of the queue
/// differ in size, so that a wrong key is seen.
void useDistinctTheme();

} // namespace queue_view_rules
