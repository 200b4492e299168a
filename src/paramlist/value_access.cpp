#include "paramlist/value_access.h"

#include <algorithm>
#include <cstring>

namespace orvell::paramlist {
namespace {

bool Fits(std::span<const std::uint8_t> buffer, ValueForm form) {
    const std::uint32_t minimum = MinimumLength(form);
    return minimum != 0 && buffer.data() != nullptr && buffer.size() >= minimum;
}

struct Written {
    ParameterEntry* entry = nullptr;  ///< null when the value may not be written
    bool isSet = false;
};

/// Finds or creates the entry and has `set(handler, value)` set its value.
template <typename Set>
Written Write(ParameterList& list, std::string_view addressText, const Set& set) {
    const ParameterAddress address = list.ParseAddress(addressText);
    if (address.kind == nullptr) {
        return {};
    }
    ParameterEntry* const entry = list.EntryToWrite(*address.kind, address.number);
    if (entry == nullptr) {
        return {};
    }
    if (address.kind->Handler() == nullptr) {
        entry->Value().Clear();
        return {entry, false};
    }
    return {entry, set(*address.kind->Handler(), entry->Value())};
}

template <typename Set>
bool WriteDescribed(ParameterList& list, std::string_view address, const Description& description,
                    const Set& set) {
    const Written written = Write(list, address, set);
    if (written.entry != nullptr) {
        written.entry->SetName(description.name);
        written.entry->SetComment(description.comment);
    }
    return written.isSet;
}

/// `get` is the handler's getter; it writes 0 for what it cannot give.
template <typename Number>
bool GetVector(ParameterList& list, std::string_view addressText, std::uint32_t count,
               void* destination,
               bool (ValueTypeHandler::*get)(const ParameterValue&, Number&) const) {
    const ParameterAddress address = list.ParseAddress(addressText);
    if (address.kind == nullptr) {
        return false;
    }
    const ValueTypeHandler* const handler = address.kind->Handler();
    auto* place = static_cast<std::uint8_t*>(destination);
    for (std::uint32_t index = 0; index < count; ++index, place += sizeof(Number)) {
        Number number = 0;
        const ParameterEntry* const entry = list.EntryToRead(*address.kind, address.number + index);
        if (handler != nullptr && entry != nullptr) {
            (handler->*get)(entry->Value(), number);
        }
        std::memcpy(place, &number, sizeof number);
    }
    return true;
}

ParameterEntry* FindOldest(ParameterList& list, std::string_view addressText) {
    const ParameterAddress address = list.ParseAddress(addressText);
    return address.kind != nullptr ? address.kind->Find(address.number) : nullptr;
}

}  // namespace

bool GetValue(ParameterList& list, std::string_view addressText, std::span<std::uint8_t> buffer,
              ValueForm form) {
    if (!Fits(buffer, form)) {
        return false;
    }
    const ParameterAddress address = list.ParseAddress(addressText);
    if (address.kind == nullptr) {
        return false;
    }
    std::fill_n(buffer.begin(), MinimumLength(form), std::uint8_t{0});
    const ParameterEntry* const entry = list.EntryToRead(*address.kind, address.number);
    return entry != nullptr && address.kind->Handler() != nullptr &&
           GetInForm(form, *address.kind->Handler(), entry->Value(), buffer);
}

bool SetValue(ParameterList& list, std::string_view address, std::span<const std::uint8_t> buffer,
              ValueForm form) {
    if (!Fits(buffer, form)) {
        return false;
    }
    const auto set = [&](const ValueTypeHandler& handler, ParameterValue& value) {
        return SetFromForm(form, handler, value, buffer);
    };
    return Write(list, address, set).isSet;
}

bool SetFromWord(ParameterList& list, std::string_view address, std::uint16_t word,
                 const Description& description) {
    return WriteDescribed(list, address, description,
                          [&](const ValueTypeHandler& handler, ParameterValue& value) {
                              return handler.SetFromWord(value, word);
                          });
}

bool SetFromDword(ParameterList& list, std::string_view address, std::uint32_t dword,
                  const Description& description) {
    return WriteDescribed(list, address, description,
                          [&](const ValueTypeHandler& handler, ParameterValue& value) {
                              return handler.SetFromDword(value, dword);
                          });
}

bool SetFromDouble(ParameterList& list, std::string_view address, double number,
                   const Description& description) {
    return WriteDescribed(list, address, description,
                          [&](const ValueTypeHandler& handler, ParameterValue& value) {
                              return handler.SetFromDouble(value, number);
                          });
}

bool SetFromText(ParameterList& list, std::string_view address,
                 std::optional<std::string_view> text, const Description& description) {
    return WriteDescribed(list, address, description,
                          [&](const ValueTypeHandler& handler, ParameterValue& value) {
                              return handler.SetFromText(value, text);
                          });
}

bool SetFromText(ParameterList& list, std::string_view address,
                 std::optional<std::string_view> text) {
    const auto set = [&](const ValueTypeHandler& handler, ParameterValue& value) {
        return handler.SetFromText(value, text);
    };
    return Write(list, address, set).isSet;
}

bool GetWords(ParameterList& list, std::string_view address, std::uint32_t count,
              void* destination) {
    return GetVector(list, address, count, destination, &ValueTypeHandler::GetWord);
}

bool GetDwords(ParameterList& list, std::string_view address, std::uint32_t count,
               void* destination) {
    return GetVector(list, address, count, destination, &ValueTypeHandler::GetDword);
}

bool GetDoubles(ParameterList& list, std::string_view address, std::uint32_t count,
                void* destination) {
    return GetVector(list, address, count, destination, &ValueTypeHandler::GetDouble);
}

std::optional<Description> FindDescription(ParameterList& list, std::string_view addressText) {
    const ParameterAddress address = list.ParseAddress(addressText);
    return address.kind != nullptr ? address.kind->GetNameAndComment(address.number) : std::nullopt;
}

bool SetName(ParameterList& list, std::string_view address, std::string_view name) {
    ParameterEntry* const entry = FindOldest(list, address);
    if (entry == nullptr) {
        return false;
    }
    entry->SetName(name);
    return true;
}

bool SetComment(ParameterList& list, std::string_view address, std::string_view comment) {
    ParameterEntry* const entry = FindOldest(list, address);
    if (entry == nullptr) {
        return false;
    }
    entry->SetComment(comment);
    return true;
}

}  // namespace orvell::paramlist
