#include "app/ui/LayoutSwitch.h"

#include "app/ui/PanelLayouts.h"
#include "strips/ui/IconButton.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>

namespace lumeroom {

namespace {

constexpr int kMargin = 4; // from the window's edge
constexpr QSize kPicture{16, 16};

} // namespace

LayoutSwitch::LayoutSwitch(std::function<void(int theme)> choose, QWidget& bar)
    : QWidget(bar.parentWidget()) // what the bar holds besides its menus is not announced
    , m_bar(bar)
    , m_segments(new QButtonGroup(this))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, kMargin, 0);
    row->setSpacing(0);
    for (PanelLayout& layout : panelLayouts()) {
        auto* button = new IconButton(layout.icon, layout.title.remove('&'), this);
        button->setCheckable(true);
        button->setIconSize(kPicture);
        m_segments->addButton(button, layout.theme);
        row->addWidget(button);
    }
    connect(m_segments, &QButtonGroup::idClicked, this, std::move(choose));
    setAccessibleName(tr("layout"));
    bar.installEventFilter(this);
    place();
}

/// As a corner widget it would make the menu bar higher than its entries.
bool LayoutSwitch::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Move:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        place();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

/// The View menu has the layouts, too, for a window too narrow for both.
void LayoutSwitch::place()
{
    const QRect bar = m_bar.geometry();
    const int width = sizeHint().width();
    setGeometry(bar.right() + 1 - width, bar.top(), width, bar.height());
    setHidden(m_bar.isHidden() || m_bar.sizeHint().width() + width > bar.width());
}

void LayoutSwitch::select(int theme)
{
    if (QAbstractButton* segment = m_segments->button(theme)) {
        segment->setChecked(true);
        return;
    }
    m_segments->setExclusive(false); // or one stays pressed
    for (QAbstractButton* segment : m_segments->buttons())
        segment->setChecked(false);
    m_segments->setExclusive(true);
}

} // namespace lumeroom
