#pragma once

#include <QString>

#include <vector>

class QWidget;

namespace lumeroom {

class LampControlStripView;

/// Where the keyboard is in the panel, and the order in which it goes through it.
class KeyboardPlace {
public:
    explicit KeyboardPlace(QWidget& rows)
        : m_rows(rows)
    {
    }

    /// What the keyboard goes through before the rows. It goes to the first when it has no place.
    void addBefore(QWidget* part) { m_before.push_back(part); }
    /// Notes the control in the rows that the keyboard is on.
    void keep();
    /// A keyboard whose place is gone comes back to the control that was noted, or to what is
    /// before the rows.
    void settle();

    /// The keyboard goes through the rows as the eye does.
    void setOrder(const std::vector<LampControlStripView*>& rows);
    void forgetOrder() { m_order.clear(); }
    LampControlStripView* firstRow() const { return m_order.empty() ? nullptr : m_order.front(); }

private:
    QWidget* noted() const;

    QWidget& m_rows;
    std::vector<QWidget*> m_before;
    QString m_control; ///< by its accessible name
    std::vector<LampControlStripView*> m_order;
};

} // namespace lumeroom
