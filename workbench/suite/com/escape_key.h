// Esc, with which the user cancels a server's statement.
#pragma once

namespace workbench {

// Whether Escape is down while a window of this program has the foreground. Looks at the key
// itself, because no messages are processed during a statement.
bool EscapeIsPressed();

}  // namespace workbench
