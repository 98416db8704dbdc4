#include "strips/ui/Mirror.h"

namespace lumeroom {

void mirrorControl(QWidget& view, const ControlModel& model)
{
    view.setHidden(model.isHidden());
    view.setEnabled(model.isEnabled());
    if (!model.toolTip().empty())
        view.setToolTip(plainToolTip(QString::fromStdString(model.toolTip())));
}

QString plainToolTip(const QString& text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

} // namespace lumeroom
