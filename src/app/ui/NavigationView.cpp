#include "app/ui/NavigationView.h"

#include "app/NavigationModel.h"
#include "app/ui/NavigationSwitch.h"
#include "strips/ui/IconButton.h"

#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPropertyAnimation>
#include <QStyle>
#include <QToolTip>
#include <QVBoxLayout>

namespace lumeroom {

namespace {

constexpr int kMargin = 6;
constexpr int kShownAt = 3; // where the way back stands
constexpr int kAside = 5; // how far beyond the edge it waits
constexpr int kGlideMilliseconds = 220;
constexpr QSize kGroupButton{32, 26};

/// The widget's frame in the coordinates of its window.
Rectangle frameInWindow(const QWidget& widget)
{
    const QPoint origin = widget.mapTo(widget.window(), QPoint());
    return {static_cast<float>(origin.x()), static_cast<float>(origin.y()),
        static_cast<float>(widget.width()), static_cast<float>(widget.height())};
}

QVBoxLayout* makeColumn(QWidget* page)
{
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(2);
    return column;
}

} // namespace

NavigationView::NavigationView(NavigationModel& model, NavigationActions actions, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_description(new QLabel)
    , m_switches(makeSwitches())
    , m_wayBack(makeWayBack())
    , m_allButtons(makeAllButtons(std::move(actions)))
{
    setAccessibleName(tr("navigation"));
    m_model.onChange = [view = QPointer(this)] {
        if (view)
            view->mirror(true);
    };
}

QWidget* NavigationView::makeSwitches()
{
    auto* page = new QWidget(this);
    auto* column = makeColumn(page);
    const auto add = [&](ButtonModel& button, const QString& text, const QString& tip) {
        auto* view = new NavigationSwitch(m_model, button, text, page);
        const auto describe = [view, &button, tip] {
            const QString note = QString::fromStdString(button.toolTip());
            const auto after
                = [&note](const char* mark) { return note.isEmpty() ? "" : note + mark; };
            view->setToolTip(
                after("\n") + tip + tr("\nDouble-click or Ctrl-click to show nothing else"));
            view->setAccessibleDescription(after("; ") + tip + tr("; with Ctrl, nothing else"));
        };
        m_notes.push_back(button.listen(describe));
        describe();
        // Else nothing would be seen to come of the press, where other rows show.
        connect(view, &QAbstractButton::clicked, this, [view, &button] {
            if (button.state())
                QToolTip::showText(view->mapToGlobal(QPoint(view->width(), 0)),
                    QString::fromStdString(button.toolTip()), view);
        });
        column->addWidget(view);
        if (!m_firstSwitch)
            m_firstSwitch = view;
    };
    add(m_model.lights, tr("Lamps"), tr("Show a strip for each lamp"));
    add(m_model.groups, tr("Groups"), tr("Show a strip for each group"));
    add(m_model.locations, tr("Locations"), tr("Show a strip for each location"));
    add(m_model.tags, tr("Tags"), tr("Show a strip for each tag"));
    add(m_model.all, tr("All lamps"), tr("Show a strip for all lamps together"));
    column->addStretch(1);
    return page;
}

QWidget* NavigationView::makeWayBack()
{
    auto* page = new QWidget(this);
    auto* column = makeColumn(page);
    auto* back = new NavigationButton(tr("Back"), Icon::NavBack, page);
    connect(back, &QAbstractButton::clicked, this, [this] { m_model.back.press(); });
    column->addWidget(back);
    m_back = back;
    m_description->setTextFormat(Qt::PlainText);
    m_description->setWordWrap(true);
    m_description->setContentsMargins(kMargin, kMargin, 0, 0);
    column->addWidget(m_description);
    column->addStretch(1);
    return page;
}

QWidget* NavigationView::makeAllButtons(NavigationActions actions)
{
    auto* page = new QWidget(this);
    auto* column = makeColumn(page);
    const auto add = [&](const QString& text, Icon icon, std::function<void()> action) {
        auto* button = new NavigationButton(text, icon, page);
        connect(button, &QAbstractButton::clicked, this, std::move(action));
        column->addWidget(button);
    };
    column->addLayout(makeGroupButtons(actions, page));
    add(tr("All on"), Icon::AllOn, std::move(actions.allOn));
    add(tr("All off"), Icon::AllOff, std::move(actions.allOff));
    return page;
}

QLayout* NavigationView::makeGroupButtons(const NavigationActions& actions, QWidget* page)
{
    auto* make = new IconButton(Icon::Add, tr("Make group..."), page);
    connect(make, &QAbstractButton::clicked, this, actions.makeGroup);
    const auto popsUp = [&](Icon icon, const QString& name, ButtonModel& model, auto popUp) {
        auto* button = new IconButton(icon, name, model, page);
        connect(button, &QAbstractButton::clicked, this,
            [button, popUp] { popUp(frameInWindow(*button)); });
        return button;
    };
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    for (QWidget* button :
        {make, popsUp(Icon::Edit, tr("Edit group"), m_model.editGroup, actions.editGroup),
            popsUp(Icon::Delete, tr("Delete group"), m_model.deleteGroup, actions.deleteGroup)}) {
        button->setFixedSize(kGroupButton);
        row->addWidget(button);
    }
    return row;
}

void NavigationView::mirror(bool gliding)
{
    const bool filtered = m_model.filter.has_value();
    if (filtered) // else it glides away as it is
        m_description->setText(QString::fromStdString(m_model.filter->description));
    place(m_switches, filtered ? -width() : 0, gliding);
    place(m_wayBack, filtered ? kShownAt : width() + kAside, gliding);
    m_switches->setEnabled(!filtered); // what is out of sight is out of the keyboard's reach
    m_wayBack->setEnabled(filtered);
    setFocusProxy(filtered ? m_back : m_firstSwitch);
}

void NavigationView::place(QWidget* page, int x, bool gliding) const
{
    const bool animated = style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
    if (!gliding || !animated || !isVisible()) {
        page->move(x, 0);
        return;
    }
    auto* glide = new QPropertyAnimation(page, "pos", page);
    glide->setDuration(kGlideMilliseconds);
    glide->setEasingCurve(QEasingCurve::OutCubic);
    glide->setEndValue(QPoint(x, 0));
    glide->start(QAbstractAnimation::DeleteWhenStopped);
}

void NavigationView::resizeEvent(QResizeEvent*)
{
    const int below = m_allButtons->sizeHint().height();
    m_switches->resize(width(), height() - below);
    m_wayBack->resize(width() - kShownAt, height() - below);
    m_allButtons->setGeometry(0, height() - below, width(), below);
    mirror(false);
}

void NavigationView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.12F);
    painter.setPen(line);
    painter.drawLine(width() - 1, 0, width() - 1, height());
}

} // namespace lumeroom
