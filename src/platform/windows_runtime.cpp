// What the compiler's libraries would add to the DLL, more than twice what the library itself takes, for
// cases that do not occur in it. Defined here, their own versions stay out of the link. Where one of these is
// reached, the process ends, or the host gets std::bad_alloc, also for what would be std::length_error.
#include <cstdlib>
#include <exception>
#include <new>
#include <string>

// Their own names the exception on standard error before the process ends, which takes reading mangled names.
void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }

// What the library's containers refuse. Their own come with every standard error, each with both kinds of
// string.
void std::__throw_bad_alloc() { throw std::bad_alloc(); }
void std::__throw_bad_array_new_length() { throw std::bad_alloc(); }
void std::__throw_length_error(const char*) { throw std::bad_alloc(); }

// Start-up code that corrects addresses of other modules' variables. The linker is told to refuse what needs
// it.
extern "C" void _pei386_runtime_relocator() {}

// What the runtime's start-up code ends the process with when it is entered twice at once; with it would come
// the arguments, the environment and the time zone of a program.
extern "C" void _amsg_exit(int) { std::abort(); }
