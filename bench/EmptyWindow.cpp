#include <QApplication>
#include <QMainWindow>

/// The least program with a window, to measure the real one against.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(915, 540);
    window.show();
    return QApplication::exec();
}
