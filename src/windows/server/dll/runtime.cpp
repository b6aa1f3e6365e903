// Smaller replacements for functions of libstdc++ that link much code for what hardly ever runs:
// all of <bits/functexcept.h> that the runtime keeps in one object, so that it is not linked beside
// them.
#include <bits/functexcept.h>

#include <cstdlib>
#include <exception>
#include <new>
#include <typeinfo>

namespace {

// What the C++ library throws for a wrong argument. The types of <stdexcept> own their texts, in
// strings of an older form that take a twentieth of the DLL.
class ArgumentError final : public std::exception {
 public:
  // `text` is a literal.
  explicit ArgumentError(const char* text) : text_(text) {}
  const char* what() const noexcept override { return text_; }

 private:
  const char* text_;
};

}  // namespace

namespace std {

void __throw_logic_error(const char* text) { throw ArgumentError(text); }
void __throw_domain_error(const char* text) { throw ArgumentError(text); }
void __throw_invalid_argument(const char* text) { throw ArgumentError(text); }
void __throw_range_error(const char* text) { throw ArgumentError(text); }
void __throw_overflow_error(const char* text) { throw ArgumentError(text); }
void __throw_underflow_error(const char* text) { throw ArgumentError(text); }
void __throw_runtime_error(const char* text) { throw ArgumentError(text); }
void __throw_out_of_range(const char* text) { throw ArgumentError(text); }
// The text keeps its placeholders.
void __throw_out_of_range_fmt(const char* text, ...) { throw ArgumentError(text); }

// No memory can hold that many elements.
void __throw_length_error(const char*) { throw bad_alloc(); }
void __throw_bad_array_new_length() { throw bad_alloc(); }
void __throw_bad_alloc() { throw bad_alloc(); }

void __throw_bad_cast() { throw bad_cast(); }
void __throw_bad_typeid() { throw bad_typeid(); }
void __throw_bad_exception() { throw bad_exception(); }

}  // namespace std

namespace __gnu_cxx {

// It never runs, because every entry into the library catches all exceptions. The runtime's own one
// links a demangler, a twentieth of the DLL.
void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx
