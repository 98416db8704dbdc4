#include "strips/ui/Mirror.h"

namespace lumeroom {

void mirrorControl(QWidget& view, const ControlModel& model)
{
    view.setHidden(model.isHidden());
    view.setEnabled(model.isEnabled());
    const QString toolTip = QString::fromStdString(model.toolTip());
    if (!toolTip.isEmpty())
        view.setToolTip(plainToolTip(toolTip));
    view.setAccessibleDescription(toolTip); // or the tool tip's markup would be read out
}

QString plainToolTip(const QString& text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

} // namespace lumeroom
