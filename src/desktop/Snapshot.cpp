#include "desktop/Snapshot.h"

#include "desktop/Table.h"
#include "engine/LampRegistry.h"
#include "engine/LampUnits.h"
#include "strips/LightWords.h"

#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <cstdio>

namespace lumeroom {

namespace {

constexpr Seconds kBetweenLooks(0.5);
constexpr int kQuietLooksWanted = 5;
// Half a minute. Each time the panel is set up anew, questions that wait for the broadcast socket
// are lost until the next cycle: the lamps of the demonstration name their product after 18 s.
constexpr int kMostLooks = 60;

QString percentText(const Lamp& lamp)
{
    if (!lamp.brightness)
        return QStringLiteral("-");
    return QStringLiteral("%1%").arg(percentOf(static_cast<float>(*lamp.brightness), kMostLevel));
}

} // namespace

std::string lampTable(const Lamps& lamps)
{
    QList<QStringList> rows{{QStringLiteral("Lamp"), QStringLiteral("Product"),
        QStringLiteral("Address"), QStringLiteral("Power"), QStringLiteral("Brightness")}};
    for (const auto& lamp : lamps) {
        const std::string& name = lamp->label.empty() ? lamp->id : lamp->label;
        rows.append({printable(QString::fromStdString(name)),
            QString::fromStdString(lamp->product.value_or("-")),
            QString::fromStdString(lamp->address),
            lamp->onoff.value_or(false) ? QStringLiteral("on") : QStringLiteral("off"),
            percentText(*lamp)});
    }
    return tableOf(rows).toStdString();
}

Snapshot::Snapshot(RunLoop& runLoop, const LampRegistry& registry, QWidget& panel, QString file)
    : m_runLoop(runLoop)
    , m_registry(registry)
    , m_panel(panel)
    , m_file(std::move(file))
{
}

void Snapshot::start(std::function<void(const std::string& wrong)> done)
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
    for (const auto& lamp : m_registry.distinctLamps()) {
        facts += 1U + (lamp->label.empty() ? 0U : 1U) + (lamp->product ? 1U : 0U)
            + (lamp->zones ? lamp->zones->size() : 0U);
    }
    return facts;
}

/// Whether every lamp that answered has told what it is.
bool Snapshot::isComplete() const
{
    const Lamps& lamps = m_registry.distinctLamps();
    return !lamps.empty() && std::all_of(lamps.begin(), lamps.end(), [](const auto& lamp) {
        return lamp->product && !lamp->label.empty();
    });
}

std::string Snapshot::finish()
{
    const Lamps& lamps = m_registry.distinctLamps();
    if (lamps.empty())
        return "no lamp answered";
    std::fputs(lampTable(lamps).c_str(), stdout);
    std::fflush(stdout);
    if (!m_panel.grab().save(m_file, "PNG"))
        return "cannot save the picture to " + printable(m_file).toStdString();
    return {};
}

} // namespace lumeroom
