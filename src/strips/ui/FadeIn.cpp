#include "strips/ui/FadeIn.h"

#include <QGraphicsOpacityEffect>
#include <QGuiApplication>
#include <QPropertyAnimation>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace lumeroom {

void fadeIn(QWidget& popover)
{
    constexpr int kMostMilliseconds = 150;
    const int wanted
        = popover.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &popover);
    // Of the opacity of whole windows only X11 can be told.
    const bool canFade
        = !popover.isWindow() || QGuiApplication::platformName() == QLatin1String("xcb");
    if (wanted <= 0 || !canFade)
        return;
    auto* fade = new QPropertyAnimation(&popover);
    if (popover.isWindow()) {
        fade->setTargetObject(&popover);
        fade->setPropertyName("windowOpacity");
    } else {
        auto* effect = new QGraphicsOpacityEffect(&popover);
        popover.setGraphicsEffect(effect); // takes it
        fade->setTargetObject(effect);
        fade->setPropertyName("opacity");
        QObject::connect(fade, &QAbstractAnimation::finished, &popover,
            [&popover] { popover.setGraphicsEffect(nullptr); });
    }
    fade->setDuration(std::min(wanted, kMostMilliseconds));
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

} // namespace lumeroom
