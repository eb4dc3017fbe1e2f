#include "platform/desktop/GioFilePrograms.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

#include <QLoggingCategory>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <memory>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.desktop")

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};

using AppInfo = std::unique_ptr<GAppInfo, Unref>;

constexpr const char* mailer = "xdg-email";

FileProgram programOf(GAppInfo* info)
{
    GIcon* icon = g_app_info_get_icon(info);
    const gchar* const* names = icon && G_IS_THEMED_ICON(icon) ? g_themed_icon_get_names(G_THEMED_ICON(icon)) : nullptr;
    return {
        .id = g_app_info_get_id(info), .name = g_app_info_get_display_name(info), .iconName = names ? names[0] : ""};
}

std::vector<FileProgram> openersOf(const QString& fileName)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(fileName, QMimeDatabase::MatchExtension);
    const QByteArray mimeType = type.name().toUtf8();
    std::vector<FileProgram> programs;
    GList* infos = g_app_info_get_all_for_type(mimeType.constData());
    if (const AppInfo preferred{g_app_info_get_default_for_type(mimeType.constData(), false)})
        programs.push_back(programOf(preferred.get()));
    for (GList* each = infos; each; each = each->next) {
        auto* info = static_cast<GAppInfo*>(each->data);
        if (g_app_info_get_id(info) && g_app_info_should_show(info)) {
            const FileProgram program = programOf(info);
            if (programs.empty() || programs.front() != program)
                programs.push_back(program);
        }
    }
    g_list_free_full(infos, g_object_unref);
    return programs;
}

void launch(GAppInfo* program, const QString& path)
{
    QByteArray url = QUrl::fromLocalFile(path).toEncoded();
    GList urls{url.data(), nullptr, nullptr};
    GError* error = nullptr;
    if (!g_app_info_launch_uris(program, &urls, nullptr, &error))
        qCWarning(log, "%s can't be opened with %s: %s", qUtf8Printable(path), g_app_info_get_id(program),
                  error->message);
    g_clear_error(&error);
}

void openWith(const QString& path, const QString& programID)
{
    const std::unique_ptr<GDesktopAppInfo, Unref> program{g_desktop_app_info_new(programID.toUtf8().constData())};
    if (program)
        launch(G_APP_INFO(program.get()), path);
    else
        qCWarning(log, "There is no program %s to open %s", qUtf8Printable(programID), qUtf8Printable(path));
}

void openWithPreferred(const QString& path)
{
    const QByteArray type = QMimeDatabase().mimeTypeForFile(path).name().toUtf8();
    if (const AppInfo program{g_app_info_get_default_for_type(type.constData(), false)})
        launch(program.get(), path);
    else
        qCWarning(log, "There is no program to open %s, a file of type %s", qUtf8Printable(path), type.constData());
}

} // namespace

GioFilePrograms::GioFilePrograms(MainLoop& loop, Workers& workers) : m_loop(loop), m_workers(workers)
{
    const auto isThere = [] { return !QStandardPaths::findExecutable(mailer).isEmpty(); };
    replyFromWorker<bool>(loop, workers, Lane::utility, Guarded::orElse(isThere, false),
                          m_lifeline.guard([this](bool canMail) { m_canMail = canMail; }));
}

void GioFilePrograms::openers(const QString& fileName, Reply<std::vector<FileProgram>> reply)
{
    replyFromWorker<std::vector<FileProgram>>(m_loop, m_workers, Lane::utility,
                                              Guarded::orElse([fileName] { return openersOf(fileName); }, {}),
                                              std::move(reply));
}

void GioFilePrograms::open(const QString& path)
{
    m_workers.submit(Lane::utility, [path] { openWithPreferred(path); });
}

void GioFilePrograms::open(const QString& path, const QString& programID)
{
    m_workers.submit(Lane::utility, [path, programID] { openWith(path, programID); });
}

void GioFilePrograms::mail(const QString& path)
{
    m_workers.submit(Lane::utility, [path] {
        if (!QProcess::startDetached(mailer, {"--attach", path}))
            qCWarning(log, "There is no mail program to send %s", qUtf8Printable(path));
    });
}

} // namespace Kovrel
