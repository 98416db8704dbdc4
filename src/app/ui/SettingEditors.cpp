#include "app/ui/SettingEditors.h"

#include "app/ui/AddressesEditor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace lumeroom {

namespace {

class SwitchEditor : public SettingEditor {
public:
    SwitchEditor(const Setting& setting, UserDefaults& store, QWidget* parent)
        : SettingEditor(setting, store, parent)
        , m_box(new QCheckBox(settingText(setting.label), this))
    {
        setControl(m_box);
        connect(m_box, &QCheckBox::toggled, this,
            [this](bool on) { storeNumber(this->setting(), on ? 1 : 0, defaults()); });
    }
    void showValue() override
    {
        const QSignalBlocker blocker(m_box);
        m_box->setChecked(switchFor(setting(), defaults()));
    }

private:
    QCheckBox* m_box;
};

class NumberEditor : public SettingEditor {
public:
    NumberEditor(const Setting& setting, UserDefaults& store, QWidget* parent)
        : SettingEditor(setting, store, parent)
        , m_field(new QDoubleSpinBox(this))
    {
        m_field->setDecimals(setting.range.decimals);
        m_field->setSingleStep(setting.range.step);
        m_field->setSuffix(settingText(setting.range.unit));
        // A number half typed is not meant: "0" on the way to "0.5" would stop the polling.
        m_field->setKeyboardTracking(false);
        m_field->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        m_field->setMinimumWidth(kFieldWidth);
        setControl(m_field);
        connect(m_field, &QDoubleSpinBox::valueChanged, this,
            [this](double number) { storeNumber(this->setting(), number, defaults()); });
    }
    void showValue() override
    {
        constexpr double kMost = 1e9; // what a field can hold
        const QSignalBlocker blocker(m_field);
        const double number = std::clamp(numberFor(setting(), defaults()), -kMost, kMost);
        // What cannot be entered may still be stored, and then shows.
        m_field->setRange(
            std::min(setting().range.minimum, number), std::max(setting().range.maximum, number));
        m_field->setValue(number);
    }

private:
    static constexpr int kFieldWidth = 110;
    QDoubleSpinBox* m_field;
};

class ChoiceEditor : public SettingEditor {
public:
    ChoiceEditor(const Setting& setting, UserDefaults& store, QWidget* parent)
        : SettingEditor(setting, store, parent)
        , m_box(new QComboBox(this))
    {
        for (const Setting::Choice& choice : setting.choices)
            m_box->addItem(settingText(choice.title), choice.value);
        m_box->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        setControl(m_box);
        connect(m_box, &QComboBox::activated, this, [this](int index) {
            storeNumber(this->setting(), m_box->itemData(index).toInt(), defaults());
        });
    }
    void showValue() override
    {
        const QSignalBlocker blocker(m_box);
        const int value = choiceFor(setting(), defaults());
        const auto listed = static_cast<int>(setting().choices.size());
        // A stored value that nobody can choose has an entry for as long as it lasts.
        while (m_box->count() > listed)
            m_box->removeItem(listed);
        if (m_box->findData(value) < 0)
            m_box->addItem(settingText(setting().otherTitle), value);
        m_box->setCurrentIndex(m_box->findData(value));
    }

private:
    QComboBox* m_box;
};

} // namespace

QString settingText(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString withoutMnemonic(const QString& text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && ++i == text.size())
            break;
        plain += text[i];
    }
    return plain;
}

SettingEditor::SettingEditor(const Setting& setting, UserDefaults& defaults, QWidget* parent)
    : QWidget(parent)
    , m_setting(setting)
    , m_defaults(defaults)
{
}

void SettingEditor::refresh()
{
    showValue();
    m_control->setEnabled(!m_defaults.isOverridden(m_setting.name()));
}

SettingEditor* SettingEditor::make(
    const Setting& setting, UserDefaults& defaults, RunLoop& runLoop, QWidget* parent)
{
    SettingEditor* editor = nullptr;
    switch (setting.kind) {
    case Setting::Kind::Switch:
        editor = new SwitchEditor(setting, defaults, parent);
        break;
    case Setting::Kind::Number:
        editor = new NumberEditor(setting, defaults, parent);
        break;
    case Setting::Kind::Choice:
        editor = new ChoiceEditor(setting, defaults, parent);
        break;
    case Setting::Kind::Addresses:
        editor = new AddressesEditor(setting, defaults, runLoop, parent);
        break;
    }
    editor->m_subscription
        = defaults.observe(runLoop, {setting.name()}, [editor] { editor->refresh(); });
    editor->refresh();
    return editor;
}

void SettingEditor::setControl(QWidget* control, QWidget* below)
{
    m_control = control;
    control->setObjectName(settingText(m_setting.name()));
    control->setAccessibleName(withoutMnemonic(settingText(m_setting.label)));
    control->setAccessibleDescription(settingText(m_setting.help));
    setFocusProxy(control);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(control);
    if (below)
        column->addWidget(below);
    if (m_setting.help.empty())
        return;
    constexpr double kHelpSize = 0.9;
    auto* help = new QLabel(settingText(m_setting.help), this);
    help->setTextFormat(Qt::PlainText);
    help->setWordWrap(true);
    QFont small = help->font();
    small.setPointSizeF(small.pointSizeF() * kHelpSize);
    help->setFont(small);
    column->addWidget(help);
    column->addStretch();
}

} // namespace lumeroom
