// Replaces parts of libstdc++ that link much code for what hardly ever runs. When a function of
// theirs is missing here, the link fails for the others, defined twice.
#include <bits/functexcept.h>

#include <cstdlib>
#include <exception>
#include <new>

namespace {

// What a container throws for a wrong argument. The types of <stdexcept> own their texts, in
// strings of an older form that take a twentieth of the DLL.
class ContainerError final : public std::exception {
 public:
  // `text` is a literal.
  explicit ContainerError(const char* text) : text_(text) {}
  const char* what() const noexcept override { return text_; }

 private:
  const char* text_;
};

}  // namespace

namespace std {

void __throw_logic_error(const char* text) { throw ContainerError(text); }
void __throw_out_of_range(const char* text) { throw ContainerError(text); }
// The text keeps its placeholders.
void __throw_out_of_range_fmt(const char* text, ...) { throw ContainerError(text); }

// No memory can hold that many elements.
void __throw_length_error(const char*) { throw bad_alloc(); }
void __throw_bad_array_new_length() { throw bad_alloc(); }
void __throw_bad_alloc() { throw bad_alloc(); }

}  // namespace std

namespace __gnu_cxx {

// It never runs, because every entry into the library catches all exceptions. The runtime's own one
// links a demangler, a twentieth of the DLL.
void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx
