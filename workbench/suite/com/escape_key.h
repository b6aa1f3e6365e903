// Esc, with which the user cancels a server's statement.
#pragma once

namespace workbench {

// Whether Escape is down while a window of this program has the foreground. Looks at the key
// itself, because no messages are processed during a statement.
bool EscapeIsPressed();

// Drops the messages of a pressed Escape from this thread's queue, repeated ones up to its release:
// the key has cancelled a statement and must not close a window as well.
void DropEscape() noexcept;

}  // namespace workbench
