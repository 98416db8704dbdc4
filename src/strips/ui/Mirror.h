#pragma once

#include "strips/Controls.h"

#include <QPointer>
#include <QWidget>

/// How a view follows its model.
namespace lumeroom {

/// Mirrors the model now and at each change, for as long as the view lives.
template <typename View> void followModel(ControlModel& model, View* view, void (View::*mirror)())
{
    auto subscription = model.listen([view = QPointer<View>(view), mirror] {
        if (view)
            (view->*mirror)();
    });
    // The connection holds it, and goes with the view.
    QObject::connect(view, &QObject::destroyed, [subscription = std::move(subscription)] {});
    (view->*mirror)();
}

/// What all controls have in common: shown or hidden, enabled or not, and the model's tool tip
/// where it has one.
void mirrorControl(QWidget& view, const ControlModel& model);

/// A tool tip that shows the text as it stands, also where it looks like markup.
QString plainToolTip(const QString& text);

} // namespace lumeroom
