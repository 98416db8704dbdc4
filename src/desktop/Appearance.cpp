#include "desktop/Appearance.h"

#include "desktop/Colours.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>
#include <QWidget>

namespace lumeroom {

Appearance::Appearance(UserDefaults& defaults, RunLoop& runLoop)
    : m_defaults(defaults)
    , m_portal([this] { update(); })
    , m_styleOfDesktop(QApplication::style()->name())
    , m_applySoon(runLoop, [this] { apply(); })
    , m_settings(defaults.observe(runLoop, {keys::kAppearance}, [this] { update(); }))
{
    update();
}

void Appearance::watch(QWidget& window)
{
    window.installEventFilter(this);
}

bool Appearance::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ThemeChange)
        m_applySoon.request();
    return QObject::eventFilter(watched, event);
}

std::optional<bool> Appearance::isDarkWanted() const
{
    const auto set = m_defaults.get(keys::kAppearance);
    if (set == keys::kAppearanceSystem)
        return m_portal.prefersDark();
    return set == keys::kAppearanceDark;
}

void Appearance::update()
{
    if (isDarkWanted() != m_isDarkWanted)
        apply();
}

void Appearance::apply()
{
    m_isDarkWanted = isDarkWanted();
    useColoursOfDesktop(m_styleOfDesktop);
    if (m_isDarkWanted && *m_isDarkWanted != areColoursDark())
        useOwnColours(*m_isDarkWanted);
}

} // namespace lumeroom
