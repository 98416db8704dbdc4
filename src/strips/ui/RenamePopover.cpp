#include "strips/ui/RenamePopover.h"

#include "strips/ui/NameLimit.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace lumeroom {

namespace {
constexpr QSize kLeastSize{130, 87};
}

RenamePopover::RenamePopover(const QString& name, ShouldClose shouldClose, QWidget* parent)
    : PopoverFrame(parent, Qt::Popup)
    , m_field(new QLineEdit(name, this))
    , m_shouldClose(std::move(shouldClose))
{
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    layout->addWidget(new QLabel(tr("New name"), this));
    layout->addWidget(m_field);
    m_field->setAccessibleName(tr("new name"));
    m_field->setValidator(new NameLimit(m_field));
    setMinimumSize(kLeastSize);
    m_field->selectAll();
    setFocusProxy(m_field);
}

void RenamePopover::closeEvent(QCloseEvent* event)
{
    if (!m_cancelled)
        m_shouldClose(m_field->text());
    PopoverFrame::closeEvent(event);
}

void RenamePopover::keyPressEvent(QKeyEvent* event)
{
    m_cancelled = event->key() == Qt::Key_Escape;
    PopoverFrame::keyPressEvent(event); // Escape closes any popup, and Return this one
}

} // namespace lumeroom
