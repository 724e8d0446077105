#include "command/state_list.h"

#include "command/escaped_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cwchar>
#include <string_view>

namespace panewright::command {
namespace {

/// A name that is longer than this does not widen its column.
constexpr std::size_t kWidestColumn = 40;
constexpr std::size_t kGap = 2;

using Row = std::array<std::string, 5>;

template <class Type>
const Type* find(const ListedState& state, std::string_view name) {
    for (const auto& [key, value] : state) {
        if (key == name) {
            return std::get_if<Type>(&value);
        }
    }
    return nullptr;
}

std::string text(const ListedState& state, std::string_view name) {
    const auto* found = find<std::string>(state, name);
    return found ? escapedText(*found) : "";
}

/// The shortest text that reads back as the same number.
std::string number(double value) {
    std::array<char, 32> digits{};
    return {digits.data(), std::to_chars(digits.data(), digits.end(), value).ptr};
}

std::string percentage(double part) {
    return number(std::round(part * 1000) / 10) + "%";
}

std::string frame(const ListedState& state) {
    const auto* scale = find<std::vector<double>>(state, "scale");
    if (scale && scale->size() == 2) {
        return percentage((*scale)[0]) + " x " + percentage((*scale)[1]);
    }
    const auto* rect = find<std::vector<double>>(state, "frame");
    if (rect && rect->size() == 4) {
        return number((*rect)[2]) + " x " + number((*rect)[3]) + " at " + number((*rect)[0]) +
               ", " + number((*rect)[1]);
    }
    return "";
}

std::string application(const ListedState& state) {
    const auto name = text(state, "applicationName");
    return name.empty() ? text(state, "applicationId") : name;
}

Row rowOf(const ListedState& state) {
    return {text(state, "name"), text(state, "shortcut"), text(state, "scope"), application(state),
            frame(state)};
}

/// How many columns of a terminal the text takes.
std::size_t widthOf(const std::string& cell) {
    std::size_t width = 0;
    std::mbstate_t shift{};
    const char* at = cell.data();
    const char* const end = at + cell.size();
    while (at < end) {
        wchar_t character = 0;
        const auto length =
            std::mbrtowc(&character, at, static_cast<std::size_t>(end - at), &shift);
        if (length == 0 || length > cell.size()) {
            return cell.size(); // not UTF-8 after all
        }
        width += static_cast<std::size_t>(std::max(0, wcwidth(character)));
        at += length;
    }
    return width;
}

void appendTo(std::string& table, const Row& row, const std::array<std::size_t, 5>& widths) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column) {
        const auto width = widthOf(row[column]);
        line += row[column];
        line.append(kGap + (width < widths[column] ? widths[column] - width : 0), ' ');
    }
    table += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
}

std::string json(const Value& value) {
    struct {
        std::string operator()(bool flag) const { return flag ? "true" : "false"; }
        std::string operator()(std::uint64_t integer) const { return std::to_string(integer); }
        // JSON has no other numbers.
        std::string operator()(double real) const {
            return std::isfinite(real) ? number(real) : "null";
        }
        std::string operator()(const std::string& content) const { return jsonText(content); }
        std::string operator()(const std::vector<double>& reals) const {
            std::string all;
            for (const double real : reals) {
                all += (all.empty() ? "" : ", ") + (*this)(real);
            }
            return "[" + all + "]";
        }
    } const write;
    return std::visit(write, value);
}

} // namespace

std::string tableOf(const ListedStates& states) {
    if (states.empty()) {
        return "";
    }
    std::setlocale(LC_CTYPE, "C.UTF-8"); // for the widths, whatever the user's is
    std::vector<Row> rows{{"NAME", "SHORTCUT", "SCOPE", "APPLICATION", "FRAME"}};
    std::transform(states.begin(), states.end(), std::back_inserter(rows), rowOf);
    std::array<std::size_t, 5> widths{};
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (const auto width = widthOf(row[column]); width <= kWidestColumn) {
                widths[column] = std::max(widths[column], width);
            }
        }
    }
    std::string table;
    for (const auto& row : rows) {
        appendTo(table, row, widths);
    }
    return table;
}

std::string namesOf(const ListedStates& states) {
    std::string names;
    for (const auto& state : states) {
        if (const auto* name = find<std::string>(state, "name")) {
            names += escapedText(*name) + '\n';
        }
    }
    return names;
}

std::string jsonOf(const ListedStates& states) {
    std::string all;
    for (const auto& state : states) {
        std::string members;
        for (const auto& [name, value] : state) {
            members += (members.empty() ? "" : ", ") + jsonText(name) + ": " + json(value);
        }
        all += (all.empty() ? "\n{" : ",\n{") + members + "}";
    }
    return "[" + all + (all.empty() ? "]\n" : "\n]\n");
}

} // namespace panewright::command
