#include "tests/support/TempFolder.h"

#include <QCoreApplication>
#include <QProcess>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

QString answerTo(const QString& suggested, const QString& action)
{
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationDirPath() + "/save_panel", {suggested, action});
    program.waitForFinished();
    return QString::fromUtf8(program.readAllStandardOutput()).trimmed();
}

} // namespace

TEST(QtFilePanel, TheSuggestedNameIsWhatIsAcceptedUnlessTheUserChangesIt)
{
    const Testing::TempFolder folder;
    EXPECT_EQ(answerTo(folder / "ä shot.png", "accept"), folder / "ä shot.png");
    EXPECT_EQ(answerTo(folder / "shot.png", "reject"), "cancelled");
}

} // namespace Kovrel
