#pragma once

#include <QWidget>

#include <functional>

class QButtonGroup;

namespace lumeroom {

/// One segment for each layout of the panel, of which that of the present one is pressed.
class LayoutSwitch : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("role", "Grouping")

public:
    /// Stands at the right end of `bar`, where that has room for it. `choose` takes a number of
    /// `theme`, also that of the layout that is shown already.
    LayoutSwitch(std::function<void(int theme)> choose, QWidget& bar);

    /// For a number that is no layout, none is pressed.
    void select(int theme);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QWidget& m_bar;
    QButtonGroup* m_segments;
};

} // namespace lumeroom
