#include "desktop/MakerSite.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

namespace lumeroom {

namespace {

// The browser may outlive the program. So it gets no standard error of ours, which may be the
// console's pipe: a write to that would end the browser later.
void openPage(const QString& path)
{
    const QString address = QStringLiteral("https://www.tanagerworks.com") + path;
    QProcess opener;
    opener.setProgram(QStringLiteral("xdg-open"));
    opener.setArguments({address});
    opener.setStandardOutputFile(QProcess::nullDevice());
    opener.setStandardErrorFile(QProcess::nullDevice());
    if (!opener.startDetached())
        QDesktopServices::openUrl(QUrl(address));
}

} // namespace

void visitHelp()
{
    openPage(QStringLiteral("/mac/Lumeroom/manual/index.html"));
}

void visitLumeroomHome()
{
    openPage(QStringLiteral("/mac/Lumeroom/"));
}

} // namespace lumeroom
