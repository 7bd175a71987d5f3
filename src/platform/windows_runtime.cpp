// Replacements for functions of the compiler's libraries that would triple the size of the DLL, for cases
// that do not occur in it. Defined here, they keep the originals out of the link. When one of them is called,
// the process ends, or the host gets std::bad_alloc, also in place of std::length_error.
#include <cstdlib>
#include <exception>
#include <new>
#include <string>

// The original prints the exception's name on standard error, which links the demangler.
void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }

// Errors of the standard containers. The originals link every standard exception and both kinds of string.
void std::__throw_bad_alloc() { throw std::bad_alloc(); }
void std::__throw_bad_array_new_length() { throw std::bad_alloc(); }
void std::__throw_length_error(const char*) { throw std::bad_alloc(); }

// Start-up code that relocates imported variables. The linker flag --disable-runtime-pseudo-reloc rejects
// code that needs it.
extern "C" void _pei386_runtime_relocator() {}

// Called by the runtime's start-up code when it is entered twice at once. The original links the code for a
// program's arguments, environment and time zone.
extern "C" void _amsg_exit(int) { std::abort(); }
