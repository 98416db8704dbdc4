#pragma once

#include <QObject>

#include <functional>

namespace lumeroom {

/// Keeps the program running without a window for as long as the tray offers a way back. Without a
/// tray, closing the last window quits.
class LifeInTheTray : public QObject {
    Q_OBJECT

public:
    LifeInTheTray(std::function<bool()> trayIsThere, std::function<void()> quit);
    ~LifeInTheTray() override;
};

} // namespace lumeroom
