#pragma once

#include "strips/StripTarget.h"

#include <map>
#include <string>
#include <vector>

namespace lumeroom {

class LampControlStrip;
class LampRegistry;

/// Tells the strips that a person means by what they type: those in whose names it stands, or in
/// whose names some word begins with each word of it. A lamp has the names of its group and its
/// location besides.
class NameFilter {
public:
    explicit NameFilter(const LampRegistry& registry)
        : m_registry(registry)
    {
    }

    void setText(const std::string& text);
    /// All of them while there is no text.
    bool matches(const LampControlStrip& strip);
    /// Of strips that have been asked about.
    void forgetNames() { m_names.clear(); }

private:
    /// Folding takes longer than comparing, and names seldom change.
    struct Names {
        std::string written;
        std::string folded;
    };
    std::string namesOf(const LampControlStrip& strip) const;

    const LampRegistry& m_registry;
    std::string m_text; ///< folded, as are its words
    std::vector<std::string> m_words;
    std::map<StripTarget, Names> m_names;
};

} // namespace lumeroom
