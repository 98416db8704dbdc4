#include "desktop/Snapshot.h"

#include "engine/EngineRoom.h"

#include <QPixmap>
#include <QWidget>

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace lumeroom {

namespace {

constexpr Seconds kBetweenLooks(0.5);
constexpr int kQuietLooksWanted = 5;
constexpr int kMostLooks = 40; // twenty seconds

std::string percentText(const Lamp& lamp)
{
    if (!lamp.brightness)
        return "-";
    return fmt::format("{}%", std::lround(*lamp.brightness / 2.55));
}

/// The columns that text takes on a terminal, near enough: East Asian characters take two.
std::size_t width(const std::string& text)
{
    std::size_t columns = 0;
    for (const char32_t character : QString::fromStdString(text).toUcs4())
        columns += character >= 0x1100 ? 2 : 1;
    return columns;
}

std::string padded(const std::string& text, std::size_t columns)
{
    return text + std::string(columns > width(text) ? columns - width(text) : 0, ' ');
}

} // namespace

std::string lampTable(const Lamps& lamps)
{
    std::vector<std::array<std::string, 5>> rows{
        {"Lamp", "Product", "Address", "Power", "Brightness"}};
    for (const auto& lamp : lamps) {
        rows.push_back({lamp->label.empty() ? lamp->id : lamp->label, lamp->product.value_or("-"),
            lamp->address, lamp->onoff.value_or(false) ? "on" : "off", percentText(*lamp)});
    }
    std::array<std::size_t, 5> widths{};
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], width(row[i]));
    }
    std::string table;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += padded(row[i], widths[i]) + "  ";
        table += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return table;
}

Snapshot::Snapshot(RunLoop& runLoop, const EngineRoom& engineRoom, QWidget& panel, QString file)
    : m_runLoop(runLoop)
    , m_engineRoom(engineRoom)
    , m_panel(panel)
    , m_file(std::move(file))
{
}

void Snapshot::start(std::function<void(int status)> done)
{
    m_done = std::move(done);
    look();
}

void Snapshot::look()
{
    const std::size_t facts = knownFacts();
    m_quietLooks = facts == m_lastFacts && isComplete() ? m_quietLooks + 1 : 0;
    m_lastFacts = facts;
    if (m_quietLooks >= kQuietLooksWanted || ++m_looks >= kMostLooks) {
        m_done(finish());
        return;
    }
    m_timer = m_runLoop.after(kBetweenLooks, [this] { look(); });
}

/// Grows as more is learnt of the lamps.
std::size_t Snapshot::knownFacts() const
{
    std::size_t facts = 0;
    for (const auto& lamp : m_engineRoom.lightsArray()) {
        facts += 1U + (lamp->label.empty() ? 0U : 1U) + (lamp->product ? 1U : 0U)
            + (lamp->zones ? lamp->zones->size() : 0U);
    }
    return facts;
}

/// Whether every lamp that answered has told what it is.
bool Snapshot::isComplete() const
{
    const Lamps& lamps = m_engineRoom.lightsArray();
    return !lamps.empty() && std::all_of(lamps.begin(), lamps.end(), [](const auto& lamp) {
        return lamp->product && !lamp->label.empty();
    });
}

int Snapshot::finish()
{
    const Lamps& lamps = m_engineRoom.lightsArray();
    if (lamps.empty()) {
        std::fputs("lumeroom: no lamp answered\n", stderr);
        return 1;
    }
    std::fputs(lampTable(lamps).c_str(), stdout);
    std::fflush(stdout);
    if (!m_panel.grab().save(m_file, "PNG")) {
        std::fprintf(stderr, "lumeroom: cannot save the picture to %s\n", qPrintable(m_file));
        return 1;
    }
    return 0;
}

} // namespace lumeroom
