// What the library asks of the operating system. One source implements this header for each
// system, chosen by the build; no other source names a system.
//
// None of these functions throws. All may be called from several threads at once.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/Exporta.h"

// The operating system, as the library sees it.
namespace kx::plataforma {

// --- Task allocator: the memory of records that travel to and from the server -----------------

// At least n bytes, uninitialised, aligned for any scalar; null when memory is out. On Windows:
// CoTaskMemAlloc. Elsewhere: the nothrow operator new[].
KX_API void* AlocaTarefa(std::size_t n) noexcept;

// Releases a block of AlocaTarefa; null is allowed. A block that came from `new char[n]` is
// released too, since a record may mix both: elsewhere than on Windows they are the same memory;
// on Windows the task allocator is asked whether the block is its own (IMalloc::DidAlloc), and
// what is not goes to operator delete[].
KX_API void LiberaTarefa(void* bloco) noexcept;

// --- Library loader -----------------------------------------------------------------------------

// Loads a library by its base name, as the system spells it and where the system looks for it:
// "KXMens" is KXMens.dll on Windows and libKXMens.so elsewhere. Null when it cannot be loaded.
// Each successful call is paired with one DescarregaBiblioteca.
KX_API void* CarregaBiblioteca(const char* nome) noexcept;

// Address of an exported function of a loaded library, or null.
KX_API void* EntradaDaBiblioteca(void* biblioteca, const char* entrada) noexcept;

// Gives back what a call of CarregaBiblioteca loaded.
KX_API void DescarregaBiblioteca(void* biblioteca) noexcept;

// Longest module path, its terminating zero included; a longer path is cut.
inline constexpr std::size_t kTamanhoCaminho = 260;

// Full path of the file that holds this library's code: the library, or the program that links it
// statically. Empty when the system does not tell.
KX_API void CaminhoDoModulo(char (&caminho)[kTamanhoCaminho]) noexcept;

// --- Window messages ----------------------------------------------------------------------------

// Number of the message of this name, from 0xC000 to 0xFFFF; the same name always gives the same
// number. 0 when there is none left. On Windows: RegisterWindowMessageA, where the number holds
// for the session and names differing in case alone are the same; elsewhere it holds for the
// process, and case counts.
KX_API std::uint32_t RegistraMensagemJanela(const char* nome) noexcept;

// --- Guarded copy and fill ----------------------------------------------------------------------

// As std::memmove and std::memset, but a memory fault (unmapped or protected page) is swallowed:
// they return `destino`, or null when a fault stopped them, the destination then being partly
// written. A null pointer with n > 0 counts as a fault; n == 0 touches nothing and returns
// `destino`. They may be nested, and called from a signal handler once a first call has returned.
//
// On Windows: a structured exception handler around the copy. On POSIX: a handler of SIGSEGV and
// SIGBUS, installed by the first call, which hands every fault that is not one of these copies' to
// the handler that was there before, as the system would have. Two limits follow. A handler that
// the process installs later must do the same, that is, call the one that it replaced, or the
// copies lose their guard. And a thread that blocks SIGSEGV or SIGBUS has no guard, as the system
// ends a process that faults with the signal blocked.
KX_API void* CopiaProtegida(void* destino, const void* origem, std::size_t n) noexcept;
KX_API void* PreencheProtegido(void* destino, int valor, std::size_t n) noexcept;

// The characters before the terminator, at most `limite`, under the same guard; no page beyond them
// is touched. False, and `tamanho` as it was, when a fault comes first or the text is null.
KX_API bool MedeProtegido(const char* texto, std::size_t limite, std::size_t& tamanho) noexcept;

// Runs the action with the context, which is not null, under the same guard; false when a fault
// stopped it, wherever it was. It is left as it stands, so it must own, lock and throw nothing.
KX_API bool Protege(void (*acao)(void* contexto), void* contexto) noexcept;

// True when the n bytes can be read, false when they are null or a fault stops the look at every
// page of them. What is copied out of them next needs no guard of its own, as long as nobody unmaps
// them meanwhile.
KX_API bool Legivel(const void* bloco, std::size_t n) noexcept;

// --- Processor ----------------------------------------------------------------------------------

// Whether it has the instructions that ARM has for checksums; false on any other processor.
KX_API bool TemCRC32() noexcept;

// --- Memory -------------------------------------------------------------------------------------

// Asks the processor for memory that will soon be used and may not be there: no fault comes of it.
// Without effect where the compiler has no way to ask.
inline void Antecipa([[maybe_unused]] const void* onde) noexcept {
#if defined(__GNUC__)
  __builtin_prefetch(onde);
#endif
}

}  // namespace kx::plataforma
