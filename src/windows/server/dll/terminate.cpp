// What the DLL does where the C++ runtime can only end the process: no more than the runtime must.
// It never runs, because every entry into the library catches what is thrown.
#include <cstdlib>

namespace __gnu_cxx {

// Replaces the runtime's own, which prints the exception's name and brings a demangler into
// the DLL, a twentieth of its size.
void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx
