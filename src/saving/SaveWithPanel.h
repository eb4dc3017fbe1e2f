#pragma once

#include "platform/FileManager.h"
#include "platform/FilePanel.h"
#include "platform/Scope.h"
#include "saving/SaveService.h"

#include <QPointer>

namespace Kovrel {

// Saves a picture under a name that the user picks, and shows the file in the file manager. Main thread.
class SaveWithPanel {
public:
    SaveWithPanel(MainLoop& loop, Workers& workers, FilePanel& panel, FileManager& fileManager)
        : m_panel(panel), m_fileManager(fileManager), m_scope(loop, workers)
    {
    }

    struct Request {
        QImage image;
        QString suggestedPath; // absolute
        ImageFormat format = ImageFormat::png;
        double quality = 0.9;
        QPointer<QWindow> window; // the panel belongs to it; may be null
        std::function<void(QString)> onSaved;
        std::function<void(SaveFailure)> onFailed; // also logged; may be empty
    };

    // Neither callback is called when the user changes his mind.
    void saveWithPanel(Request request);

private:
    QCoro::Task<> save(Request request);

    FilePanel& m_panel;
    FileManager& m_fileManager;
    Scope m_scope;
};

} // namespace Kovrel
