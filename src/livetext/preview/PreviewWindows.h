#pragma once

#include "livetext/preview/PreviewWindow.h"
#include "platform/FilePrograms.h"
#include "platform/ImageCodec.h"
#include "platform/Scope.h"
#include "ports/PicturePreviews.h"
#include "ports/Ports.h"

#include <QCoreApplication>
#include <QHash>

#include <memory>
#include <stop_token>

namespace Kovrel {

// Shows pictures in windows of their own, one for each file, and has them read there. Main thread; files, codecs and
// recognition are elsewhere.
class PreviewWindows : public PicturePreviews {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::PreviewWindows)

public:
    struct Services {
        MainLoop& loop;
        Workers& workers;
        Preferences& preferences;
        FilePrograms& programs; // for what we can't show
        const Ports& ports;
    };

    explicit PreviewWindows(Services services);
    ~PreviewWindows() override;

    void show(const QString& path) override;

    // The one of a file; null where there is none.
    PreviewWindow* window(const QString& path) const;

private:
    // Reading ends with the window.
    struct Shown {
        std::unique_ptr<PreviewWindow> window;
        std::stop_source stop;
    };

    QCoro::Task<> open(QString path);
    void add(const QString& path, QImage picture);
    void read(const QString& path);
    void remove(const QString& path);
    LiveTextLayer::Doors doors() const;

    Services m_services;
    QHash<QString, std::shared_ptr<Shown>> m_shown;
    Scope m_scope;
};

} // namespace Kovrel
