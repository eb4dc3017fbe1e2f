#pragma once

#include "tests/support/TempFolder.h"
#include "tests/support/VirtualDisplay.h"

#include <QJsonObject>
#include <QProcess>

#include <functional>
#include <optional>

namespace Kovrel::Testing {

// A user's session of a test's own: folders, a session bus, maybe a display, and the real program in it. Everything
// that was started ends with it.
class UserSession {
public:
    struct Result {
        int exitCode = -1;
        QByteArray output;
        QByteArray error;

        QJsonObject json() const;
    };

    // No display: the session has none. The variables come on top of the usual ones.
    explicit UserSession(const VirtualDisplay* display, bool hasBus = true);
    ~UserSession();
    UserSession(const UserSession&) = delete;
    UserSession& operator=(const UserSession&) = delete;

    void setVariable(const QString& name, const QString& value) { m_environment.insert(name, value); }

    // Runs the program with these arguments to its end.
    Result kovrel(const QStringList& arguments);
    // Signs in, and turns the settings of a test on. Captures are saved at once if it does not ask for something else.
    void prepare(const QStringList& settings = {});
    // Any other program.
    Result run(const QString& program, const QStringList& arguments);
    // Starts a program that goes on until it ends by itself or the session goes.
    QProcess& start(const QString& program, const QStringList& arguments);
    QProcess& startKovrel(const QStringList& arguments);

    // The process that owns a name on the bus, first of all the program's; 0 when there is none.
    qint64 ownerPid(const QString& name);

    qint64 instancePid() { return ownerPid("com.kovrel.Kovrel"); }

    // Ends the session's bus, as a log-out does.
    void endBus();

    // Looks again and again, for a quarter of a minute at most, whether something has come true.
    static bool eventually(const std::function<bool()>& condition);

    QString path(const QString& name) const { return m_folder / name; }

    QString saveFolder() const { return path("home/Documents/Kovrel"); }

    QStringList savedFiles() const;

private:
    void startBus();

    TempFolder m_folder;
    QProcessEnvironment m_environment;
    std::vector<std::unique_ptr<QProcess>> m_programs;
    std::unique_ptr<QProcess> m_bus;
    bool m_isPrepared = false;
};

} // namespace Kovrel::Testing
