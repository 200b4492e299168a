#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "orvell/orvell.h"

namespace orvell::values {

/// A host that notes every call and answers as it is told. Its functions are plain C and find their
/// state in the one living object.
class RecordingHost {
  public:
    struct Call {
        std::string function;
        std::uint32_t first = 0;
        std::uint32_t second = 0;
        std::vector<std::uint8_t> bytes;  ///< of the number or of the text with its NUL
        std::uint32_t kind = 0;           ///< raw put only
        const void* address = nullptr;    ///< raw put only

        bool operator==(const Call&) const = default;
    };

    RecordingHost() { current_ = this; }
    ~RecordingHost() { current_ = nullptr; }
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;

    /// A record with all functions; those named in `missing` are null.
    [[nodiscard]] OnlineAccessRecord Online(const std::string& missing = {}) const {
        OnlineAccessRecord record = {};
        record.size = sizeof record;
        record.setters = Setters<Family::kFirst>();
        record.alternative = Setters<Family::kAlternative>();
        record.getters = {&Get<std::uint8_t>,
                          &Get<std::uint16_t>,
                          &Get<std::uint32_t>,
                          &Get<std::uint64_t>,
                          &Get<float>,
                          &Get<double>,
                          &GetText};
        Remove(missing, record);
        return record;
    }

    [[nodiscard]] FillRecord Fill() const { return {sizeof(FillRecord), &PutRaw}; }

    std::vector<Call> calls;
    std::int32_t answer = 1;
    std::function<void()> onCall;      ///< what the host does besides, behind each call
    std::vector<std::uint8_t> supply;  ///< bytes that getters and the raw put hand out

    /// What the getters found in the place to be filled: it must have been zeroed.
    std::vector<std::uint8_t> foundInPlace;

  private:
    enum class Family { kFirst, kAlternative };

    template <typename Number>
    static const char* NameOf();

    template <Family family, typename Number>
    static std::int32_t ORVELL_CALL Put(std::uint32_t first, std::uint32_t second, Number value) {
        std::vector<std::uint8_t> bytes(sizeof value);
        std::memcpy(bytes.data(), &value, sizeof value);
        return Note(PutName<family>() + NameOf<Number>(), first, second, bytes);
    }

    template <Family family>
    static std::int32_t ORVELL_CALL PutText(std::uint32_t first, std::uint32_t second,
                                            const char* text) {
        const std::vector<std::uint8_t> bytes(text, text + std::strlen(text) + 1);
        return Note(PutName<family>() + "Text", first, second, bytes);
    }

    template <Family family>
    static OnlineSetters Setters() {
        return {&Put<family, std::uint8_t>,
                &Put<family, std::uint16_t>,
                &Put<family, std::uint32_t>,
                &Put<family, std::uint64_t>,
                &Put<family, float>,
                &Put<family, double>,
                &PutText<family>};
    }

    template <Family family>
    static std::string PutName() {
        return family == Family::kFirst ? "Put" : "Alt";
    }

    template <typename Number>
    static std::int32_t ORVELL_CALL Get(std::uint32_t first, std::uint32_t second, Number* value) {
        Exchange(value, sizeof *value);
        return Note(std::string("Get") + NameOf<Number>(), first, second, {});
    }

    static std::int32_t ORVELL_CALL GetText(std::uint32_t first, std::uint32_t second, char* buffer,
                                            std::uint32_t size) {
        Exchange(buffer, size);
        return Note("GetText", first, second, {});
    }

    static std::int32_t ORVELL_CALL PutRaw(std::uint32_t first, std::uint32_t second, void* bytes,
                                           std::uint32_t byteCount, std::uint32_t kind) {
        Exchange(bytes, byteCount);
        return Note("PutRaw", first, second, current_->foundInPlace, kind, bytes);
    }

    static void Exchange(void* place, std::size_t size) {
        const auto* found = static_cast<const std::uint8_t*>(place);
        current_->foundInPlace.assign(found, found + size);
        if (!current_->supply.empty()) {
            std::memcpy(place, current_->supply.data(), std::min(size, current_->supply.size()));
        }
    }

    static std::int32_t Note(const std::string& function, std::uint32_t first, std::uint32_t second,
                             std::vector<std::uint8_t> bytes, std::uint32_t kind = 0,
                             const void* address = nullptr) {
        current_->calls.push_back({function, first, second, std::move(bytes), kind, address});
        if (current_->onCall) {
            current_->onCall();
        }
        return current_->answer;
    }

    static void Remove(const std::string& missing, OnlineAccessRecord& record) {
        const auto removeSetter = [&](const std::string& family, OnlineSetters& setters) {
            if (missing == family + "8")
                setters.Put8 = nullptr;
            if (missing == family + "16")
                setters.Put16 = nullptr;
            if (missing == family + "32")
                setters.Put32 = nullptr;
            if (missing == family + "64")
                setters.Put64 = nullptr;
            if (missing == family + "Float")
                setters.PutFloat = nullptr;
            if (missing == family + "Double")
                setters.PutDouble = nullptr;
            if (missing == family + "Text")
                setters.PutText = nullptr;
        };
        removeSetter("Put", record.setters);
        removeSetter("Alt", record.alternative);
        OnlineGetters& getters = record.getters;
        if (missing == "Get8")
            getters.Get8 = nullptr;
        if (missing == "Get16")
            getters.Get16 = nullptr;
        if (missing == "Get32")
            getters.Get32 = nullptr;
        if (missing == "Get64")
            getters.Get64 = nullptr;
        if (missing == "GetFloat")
            getters.GetFloat = nullptr;
        if (missing == "GetDouble")
            getters.GetDouble = nullptr;
        if (missing == "GetText")
            getters.GetText = nullptr;
    }

    static inline RecordingHost* current_ = nullptr;
};

template <>
inline const char* RecordingHost::NameOf<std::uint8_t>() {
    return "8";
}
template <>
inline const char* RecordingHost::NameOf<std::uint16_t>() {
    return "16";
}
template <>
inline const char* RecordingHost::NameOf<std::uint32_t>() {
    return "32";
}
template <>
inline const char* RecordingHost::NameOf<std::uint64_t>() {
    return "64";
}
template <>
inline const char* RecordingHost::NameOf<float>() {
    return "Float";
}
template <>
inline const char* RecordingHost::NameOf<double>() {
    return "Double";
}

}  // namespace orvell::values
