#pragma once

#include <memory>
#include <string>

namespace orvell::platform {

/// A loaded dynamic library; destroying the object frees the library.
class Library {
  public:
    Library() = default;
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    virtual ~Library() = default;

    /// Address of the exported symbol, null when the library has none of that name.
    [[nodiscard]] virtual void* Find(const char* symbol) const = 0;

    /// The loader's handle of the library (HMODULE), for looking up its resources.
    [[nodiscard]] virtual void* Handle() const = 0;

    /// Gives the library up without freeing it: at process exit it may be gone already.
    virtual void Abandon() = 0;
};

/// Loads libraries; tests put their own loader in its place.
class LibraryLoader {
  public:
    LibraryLoader() = default;
    LibraryLoader(const LibraryLoader&) = delete;
    LibraryLoader& operator=(const LibraryLoader&) = delete;
    virtual ~LibraryLoader() = default;

    /// Loads the library at `path` (ANSI code page). Returns null on failure.
    [[nodiscard]] virtual std::unique_ptr<Library> Load(const std::string& path) = 0;
};

/// The operating system's loader. Every path of the native build fails to load.
[[nodiscard]] LibraryLoader& SystemLibraryLoader();

/// Resolves `symbol` as a function of type `Function` (a pointer type), null when absent.
template <typename Function>
[[nodiscard]] Function FindFunction(const Library& library, const char* symbol) {
    return reinterpret_cast<Function>(library.Find(symbol));
}

}  // namespace orvell::platform
