#include "cli/value_input.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <string_view>

namespace workbench::cli {
namespace {

bool ReadFileValue(const std::string& path, std::vector<std::uint8_t>& bytes, std::string& error) {
    std::ifstream file(path, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    if (!file) {
        error = "The value file " + path + " cannot be read. Give an existing file behind the @.";
        return false;
    }
    return true;
}

/// Appends the bytes of one word of hexadecimal digits and blanks.
bool ReadHexWord(std::string_view word, std::vector<std::uint8_t>& bytes, std::string& error) {
    std::size_t position = 0;
    while ((position = word.find_first_not_of(" \t", position)) != std::string_view::npos) {
        const std::string_view digits = word.substr(position, 2);
        const char* end = digits.data() + digits.size();
        std::uint8_t byte = 0;
        const auto result = std::from_chars(digits.data(), end, byte, 16);
        if (digits.size() != 2 || result.ptr != end) {
            error = "\"" + std::string(digits) +
                    "\" is no hexadecimal byte. Give two digits 0-9, A-F for each byte, such as "
                    "\"0A 1F\", or @FILE.";
            return false;
        }
        bytes.push_back(byte);
        position += 2;
    }
    return true;
}

}  // namespace

bool ReadValue(std::span<const std::string> words, std::vector<std::uint8_t>& bytes,
               std::string& error) {
    const auto file = ValueFile(words);
    return file ? ReadFileValue(*file, bytes, error) : ReadHexValue(words, bytes, error);
}

bool ReadHexValue(std::span<const std::string> words, std::vector<std::uint8_t>& bytes,
                  std::string& error) {
    bytes.clear();
    return std::ranges::all_of(
        words, [&](const std::string& word) { return ReadHexWord(word, bytes, error); });
}

std::optional<std::string> ValueFile(std::span<const std::string> words) {
    const bool isFile = words.size() == 1 && words.front().starts_with('@');
    return isFile ? std::optional(words.front().substr(1)) : std::nullopt;
}

bool WriteValueFile(const std::string& path, std::span<const std::uint8_t> bytes,
                    std::string& error) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    const std::string content(bytes.begin(), bytes.end());
    if (!file.write(content.data(), static_cast<std::streamsize>(content.size())).flush()) {
        error = "The value file " + path + " cannot be written.";
        return false;
    }
    return true;
}

std::string HexText(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += text.empty() ? "" : " ";
        text += {kDigits[byte / 16U], kDigits[byte % 16U]};
    }
    return text;
}

}  // namespace workbench::cli
