#include "cli/target_table.h"

#include <fstream>
#include <span>
#include <sstream>

#include "cli/command_line.h"
#include "cli/session.h"
#include "cli/value_input.h"

namespace workbench::cli {
namespace {

constexpr char kComment = '#';
constexpr std::size_t kAddressWords = 3;

std::vector<std::string> WordsOf(const std::string& line) {
    std::istringstream stream(line.substr(0, line.find(kComment)));
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

/// Takes a line's value over; of two for one address the last counts.
bool TakeLine(const std::vector<std::string>& words, TargetTable& table) {
    if (words.size() < kAddressWords) {
        return false;
    }
    const auto area = ParseNumber(words[0]);
    const auto element = ParseNumber(words[1]);
    const auto offset = ParseNumber(words[2]);
    std::vector<std::uint8_t> bytes;
    std::string ignored;
    if (!area || !element || !offset ||
        !ReadHexValue(std::span(words).subspan(kAddressWords), bytes, ignored)) {
        return false;
    }
    table[{*area, *element, *offset}] = std::move(bytes);
    return true;
}

}  // namespace

bool ReadTargetTable(const std::string& path, TargetTable& table, std::string& error) {
    table.clear();
    std::ifstream file(path);
    if (!file) {
        error = "The target system's values " + FileName(path) + " cannot be read.";
        return !FileExists(path);
    }
    std::size_t number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        const std::vector<std::string> words = WordsOf(line);
        if (!words.empty() && !TakeLine(words, table)) {
            error = "Line " + std::to_string(number) + " of " + FileName(path) +
                    " is no value of the target system. Give area, element and offset in decimal "
                    "and the bytes in hexadecimal, such as \"30 0 2 00 00 91 42\".";
            return false;
        }
    }
    return true;
}

bool WriteTargetTable(const std::string& path, const TargetTable& table, std::string& error) {
    std::string text = "# area, element, offset, bytes in hexadecimal\n";
    for (const auto& [address, bytes] : table) {
        text += std::to_string(address.area) + ' ' + std::to_string(address.element) + ' ' +
                std::to_string(address.offset);
        text += (bytes.empty() ? "" : " ") + HexText(bytes) + '\n';
    }
    std::ofstream file(path, std::ios::trunc);
    if (!(file << text).flush()) {
        error = "The target system's values " + FileName(path) + " cannot be written.";
        return false;
    }
    return true;
}

}  // namespace workbench::cli
