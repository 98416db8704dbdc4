#include "strips/ui/ControlStripView.h"

#include "strips/ui/ColourWellView.h"
#include "strips/ui/OnOffButtonView.h"
#include "strips/ui/Painting.h"
#include "strips/ui/RenamePopover.h"
#include "strips/ui/SliderView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace lumeroom {

namespace {

constexpr int kHeight = 56;
constexpr int kWidth = 820;
constexpr int kNameWidth = 150;
constexpr int kMargin = 12;
constexpr int kSpacing = 14;

/// A pencil that opens the name for editing.
QToolButton* makeRenameButton(QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setText(QStringLiteral("\u270E"));
    button->setAutoRaise(true);
    button->setToolTip(QObject::tr("Rename"));
    button->setAccessibleName(QObject::tr("rename"));
    return button;
}

} // namespace

ControlStripView::ControlStripView(LampControlStrip& strip, QWidget* parent)
    : QWidget(parent)
    , m_strip(strip)
{
    LampControlStrip& s = m_strip;
    setFixedSize(kWidth, kHeight);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, 0, kMargin, 0);
    row->setSpacing(kSpacing);

    m_name = new QLabel(this);
    m_name->setTextFormat(Qt::PlainText);
    m_name->setMinimumWidth(kNameWidth);
    auto* rename = makeRenameButton(this);
    connect(rename, &QToolButton::clicked, this, [this] { m_strip.showReNamePopover(); });

    row->addWidget(new OnOffButtonView(s.onOffButton(), s.colourWell(), this));
    row->addWidget(m_name, 1);
    row->addWidget(rename);
    const auto addSlider = [&](SliderModel& model, const QString& name, SliderView::MakeBar bar) {
        row->addWidget(new SliderView(model, std::move(bar), name, this), 1);
    };
    addSlider(s.brightnessSlider(), tr("brightness"), brightnessSliderBar);
    addSlider(s.colourSlider(), tr("colour"), colourSliderBar);
    addSlider(s.satSlider(), tr("saturation"), [&s](const Rectangle& inside, bool dark) {
        return whitenessSliderBar(inside, s.saturatedHueComponent(), dark);
    });
    addSlider(s.warmthSlider(), tr("warmth"), warmthSliderBar);
    row->addWidget(new ColourWellView(s.colourWell(), this));

    s.label().onChange = [this] { mirrorLabel(); };
    mirrorLabel();
}

ControlStripView::~ControlStripView()
{
    LampControlStrip& s = m_strip;
    for (ControlModel* model :
        std::initializer_list<ControlModel*>{&s.label(), &s.onOffButton(), &s.brightnessSlider(),
            &s.colourSlider(), &s.satSlider(), &s.warmthSlider(), &s.colourWell()})
        model->onChange = nullptr;
}

void ControlStripView::mirrorLabel()
{
    const QString name = QString::fromStdString(m_strip.label().text());
    m_name->setText(m_name->fontMetrics().elidedText(name, Qt::ElideRight, m_name->width()));
    m_name->setToolTip(m_name->text() == name ? QString() : name.toHtmlEscaped());
    nameControls();
}

/// Each control is announced with its lamp: "Desk lamp, brightness".
void ControlStripView::nameControls()
{
    const QString lamp = QString::fromStdString(m_strip.label().text());
    m_name->setAccessibleName(lamp);
    for (QWidget* child : findChildren<QWidget*>()) {
        if (child == m_name || child->accessibleName().isEmpty())
            continue;
        const QVariant known = child->property("role");
        const QString role = known.isValid() ? known.toString() : child->accessibleName();
        child->setProperty("role", role);
        child->setAccessibleName(lamp + QStringLiteral(", ") + role);
    }
}

bool ControlStripView::popoverIsOpen() const
{
    return m_popover != nullptr;
}

Size ControlStripView::size() const
{
    return {static_cast<float>(width()), static_cast<float>(height())};
}

Point ControlStripView::origin() const
{
    return {static_cast<float>(x()), static_cast<float>(y())};
}

void ControlStripView::setOrigin(Point origin, bool)
{
    move(static_cast<int>(origin.x), static_cast<int>(origin.y));
}

void ControlStripView::setShown(bool shown)
{
    setVisible(shown);
}

bool ControlStripView::hitTest(Point point) const
{
    return geometry().contains(static_cast<int>(point.x), static_cast<int>(point.y));
}

void ControlStripView::popUpEffectMenu(const std::vector<EffectMenuItem>&) { }

void ControlStripView::showReNamePopover(const std::string& name)
{
    m_popover = new RenamePopover(
        QString::fromStdString(name),
        [this](const QString& text) { m_strip.popoverShouldClose(text.toStdString()); }, this);
    connect(m_popover, &QObject::destroyed, this, [this] { m_popover = nullptr; });
    m_popover->move(m_name->mapToGlobal(QPoint(0, m_name->height())));
    m_popover->show();
    m_popover->setFocus();
}

void ControlStripView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool dark = isDark(*this);
    painter.fillRect(rect().adjusted(1, 0, 1, -1),
        dark ? palette().color(QPalette::Base) : QColor::fromRgbF(0.91F, 0.91F, 0.91F));
}

void ControlStripView::resizeEvent(QResizeEvent*)
{
    mirrorLabel();
}

} // namespace lumeroom
