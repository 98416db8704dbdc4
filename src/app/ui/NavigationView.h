#pragma once

#include "base/Listeners.h"

#include <QWidget>

#include <vector>

class QLabel;
class QLayout;

namespace lumeroom {

struct NavigationActions;
struct NavigationModel;

/// The column beside the strips: the five switches, or the way back with a description, and the
/// buttons for groups and for all lamps. The keyboard's focus goes to the first switch.
class NavigationView : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("role", "Grouping")

public:
    NavigationView(NavigationModel& model, NavigationActions actions, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeSwitches();
    QWidget* makeWayBack();
    QWidget* makeAllButtons(NavigationActions actions);
    QLayout* makeGroupButtons(const NavigationActions& actions, QWidget* page);
    void mirror(bool gliding);
    void place(QWidget* page, int x, bool gliding) const;

    NavigationModel& m_model;
    std::vector<Subscription> m_notes; ///< of the switches
    QLabel* m_description;
    QWidget* m_firstSwitch = nullptr;
    QWidget* m_back = nullptr;
    QWidget* m_switches;
    QWidget* m_wayBack;
    QWidget* m_allButtons;
};

} // namespace lumeroom
