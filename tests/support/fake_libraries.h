#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/library.h"

namespace orvell::test {

/// Symbols of a library that exists in the test only.
using Symbols = std::map<std::string, void*>;

/// Loads libraries from a table and keeps a journal of what was loaded, freed and abandoned.
class FakeLoader final : public platform::LibraryLoader {
  public:
    std::unique_ptr<platform::Library> Load(const std::string& path) override {
        journal.push_back("load " + path);
        const auto found = libraries.find(path);
        return found == libraries.end() ? nullptr
                                        : std::make_unique<FakeLibrary>(*this, path, found->second);
    }

    std::map<std::string, Symbols> libraries;
    std::vector<std::string> journal;

  private:
    class FakeLibrary final : public platform::Library {
      public:
        FakeLibrary(FakeLoader& loader, std::string path, const Symbols& symbols)
            : loader_(loader), path_(std::move(path)), symbols_(symbols) {}
        ~FakeLibrary() override { loader_.journal.push_back("free " + path_); }

        void* Find(const char* symbol) const override {
            const auto found = symbols_.find(symbol);
            return found == symbols_.end() ? nullptr : found->second;
        }

        void* Handle() const override { return const_cast<Symbols*>(&symbols_); }

        void Abandon() override { loader_.journal.push_back("abandon " + path_); }

      private:
        FakeLoader& loader_;
        std::string path_;
        Symbols symbols_;
    };
};

template <typename Function>
[[nodiscard]] void* Address(Function* function) {
    return reinterpret_cast<void*>(function);
}

}  // namespace orvell::test
