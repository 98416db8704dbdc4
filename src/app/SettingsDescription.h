#pragma once

#include "base/DefaultsKeys.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumeroom {

class UserDefaults;

/// One user default that a person sets, and how it is shown. Texts carry the mnemonic as "&x".
struct Setting {
    enum class Kind { Switch, Number, Choice, Addresses };
    using Key = std::variant<keys::Switch, keys::Integer, keys::Number, keys::Text>;
    struct Choice {
        int value = 0;
        std::string_view title;
    };
    /// Of a number: what may be entered, and how it is shown.
    struct Range {
        double minimum = 0;
        double maximum = 0;
        double step = 1;
        int decimals = 0;
        std::string_view unit{}; ///< behind the number, with its blank
    };

    std::string_view page;
    Key key;
    Kind kind = Kind::Switch;
    std::string_view label;
    std::string_view help{}; ///< empty where the label says it all
    Range range{};
    std::vector<Choice> choices{};
    /// What a stored number that is none of the choices amounts to; empty if none can be.
    std::string_view otherTitle{};
    /// What becomes of the number behind the key; null where it is taken as it is.
    double (*meaning)(double number) = nullptr;

    std::string_view name() const
    {
        return std::visit([](const auto& declared) { return declared.name; }, key);
    }
};

/// All of them, page by page, in the order in which they are shown.
std::span<const Setting> allSettings();

// What the program goes by: for values that are absent, of a wrong type or silly, too.
double numberFor(const Setting& setting, const UserDefaults& defaults);
bool switchFor(const Setting& setting, const UserDefaults& defaults);
/// The value of a choice, or another number, which goes by `otherTitle`.
int choiceFor(const Setting& setting, const UserDefaults& defaults);
std::string textFor(const Setting& setting, const UserDefaults& defaults);

// Store what the user set, in the form of the key. A number is rounded to the range's decimals.
void storeNumber(const Setting& setting, double number, UserDefaults& defaults);
void storeText(const Setting& setting, const std::string& text, UserDefaults& defaults);

/// Takes back what was set on a page, so that the registered values show again.
void restoreDefaults(std::string_view page, UserDefaults& defaults);

/// What is made of a list of addresses, for the reader: "2 addresses; not understood: lamp".
std::string addressListSummary(std::string_view text);

} // namespace lumeroom
