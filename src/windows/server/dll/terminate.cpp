// Replaces libstdc++'s verbose terminate handler by abort(). It never runs, because every entry
// into the library catches all exceptions.
#include <cstdlib>

namespace __gnu_cxx {

// The runtime's own one links a demangler, a twentieth of the DLL's size.
void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx
