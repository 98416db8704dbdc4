#include "app/NameFilter.h"

#include "base/Utf8.h"
#include "engine/LampRegistry.h"
#include "strips/LampControlStrip.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace lumeroom {

namespace {

bool hasWordWith(const std::string& names, const std::string& beginning)
{
    for (auto at = names.find(beginning); at != std::string::npos;
         at = names.find(beginning, at + 1)) {
        if (at == 0 || names[at - 1] == ' ' || names[at - 1] == '\n')
            return true;
    }
    return false;
}

} // namespace

void NameFilter::setText(const std::string& text)
{
    m_text.clear();
    m_words.clear();
    std::istringstream words(foldedUtf8(text));
    for (std::string word; words >> word;) {
        m_text += (m_text.empty() ? "" : " ") + word;
        m_words.push_back(word);
    }
}

bool NameFilter::matches(const LampControlStrip& strip)
{
    if (m_words.empty())
        return true;
    Names& names = m_names[strip.target()];
    if (std::string written = namesOf(strip); written != names.written) {
        names.folded = foldedUtf8(written);
        names.written = std::move(written);
    }
    return names.folded.find(m_text) != std::string::npos
        || std::all_of(m_words.begin(), m_words.end(),
            [&](const std::string& word) { return hasWordWith(names.folded, word); });
}

std::string NameFilter::namesOf(const LampControlStrip& strip) const
{
    std::string names = strip.label().shownText();
    if (strip.type() != StripType::Lamp)
        return names;
    if (const auto lamp = m_registry.lampWithID(strip.getID())) {
        const std::array<const Grouping*, 2> groupings{lamp->group.get(), lamp->location.get()};
        for (const Grouping* grouping : groupings)
            names += grouping ? "\n" + grouping->label : "";
    }
    return names;
}

} // namespace lumeroom
