#pragma once

#include "editorwindow/EditorWindow.h"
#include "platform/Clipboard.h"
#include "platform/FilePanel.h"
#include "platform/desktop/QtMainLoop.h"
#include "preferences/Preferences.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>

#include <memory>

namespace Kovrel::Bench {

struct NoFilePanel : FilePanel {
    void ask(const QString&, QWindow*, Reply<std::optional<QString>> reply) override { reply({}); }

    void askForFolder(const QString&, QWindow*, Reply<std::optional<QString>> reply) override { reply({}); }

    void askForFile(const QString&, QWindow*, Reply<std::optional<QString>> reply) override { reply({}); }
};

struct NoClipboard : Clipboard {
    void put(std::vector<ClipboardOffer>) override {}

    void putText(const QString&) override {}

    void read(QStringList, Reply<std::optional<ClipboardContent>> reply) override { reply({}); }

    void readText(Reply<std::optional<QString>> reply) override { reply({}); }
};

// An editor's window, with settings of its own in a folder.
struct EditorRig {
    EditorRig(const QString& folder, Workers& workers) : defaults(folder + "/kovrel.conf"), workers(workers)
    {
        Preferences::registerDefaults(defaults);
        preferences.set(Settings::lastEditorTool, EditorTool::select);
    }

    std::unique_ptr<EditorWindow> window(const QImage& image, double scale, EditorDocument document = {})
    {
        EditedCaptures::Opened opened{{QUuid::createUuid(), image, scale, {}}, std::move(document), {}};
        auto made = std::make_unique<EditorWindow>(services, std::move(opened), EditorWindow::Kind::file, "Page");
        made->resize(1240, 760);
        made->show();
        settle();
        return made;
    }

    static void settle()
    {
        for (int round = 0; round < 20; ++round)
            QCoreApplication::processEvents();
    }

    static void settleFor(int milliseconds)
    {
        for (const QDeadlineTimer deadline(milliseconds); !deadline.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }

    UserDefaults defaults;
    Preferences preferences{defaults};
    QtMainLoop loop;
    Workers& workers;
    NoFilePanel filePanel;
    NoClipboard clipboard;
    Ports ports;
    EditorServices services{loop, workers, preferences, filePanel, clipboard, ports, QDir::tempPath()};
};

} // namespace Kovrel::Bench
