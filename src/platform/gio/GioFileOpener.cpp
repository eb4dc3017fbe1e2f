#include "platform/gio/GioFileOpener.h"

#include "platform/plugins/PluginFileOpener.h"

#include <QMimeDatabase>
#include <QUrl>

#include <algorithm>
#include <memory>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace Kovrel {

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};

using AppInfo = std::unique_ptr<GAppInfo, Unref>;

FileProgram programOf(GAppInfo* info)
{
    GIcon* icon = g_app_info_get_icon(info);
    const gchar* const* names = icon && G_IS_THEMED_ICON(icon) ? g_themed_icon_get_names(G_THEMED_ICON(icon)) : nullptr;
    return {
        .id = g_app_info_get_id(info), .name = g_app_info_get_display_name(info), .iconName = names ? names[0] : ""};
}

QByteArray typeOf(const QString& fileName, QMimeDatabase::MatchMode mode)
{
    return QMimeDatabase().mimeTypeForFile(fileName, mode).name().toUtf8();
}

AppInfo preferredFor(const QByteArray& type)
{
    return AppInfo(g_app_info_get_default_for_type(type.constData(), false));
}

// In the desktop's order.
std::vector<FileProgram> associatedWith(const QByteArray& type)
{
    std::vector<FileProgram> programs;
    GList* infos = g_app_info_get_all_for_type(type.constData());
    for (GList* each = infos; each; each = each->next)
        if (auto* info = static_cast<GAppInfo*>(each->data); g_app_info_get_id(info) && g_app_info_should_show(info))
            programs.push_back(programOf(info));
    g_list_free_full(infos, g_object_unref);
    return programs;
}

FileOpener::Outcome failed(GError* error)
{
    const QString reason = QString::fromUtf8(error->message);
    g_error_free(error);
    return std::unexpected(reason);
}

AppInfo programWith(const QString& id)
{
    return AppInfo(reinterpret_cast<GAppInfo*>(g_desktop_app_info_new(id.toUtf8().constData())));
}

FileOpener::Outcome launch(GAppInfo* program, const QString& path)
{
    QByteArray url = QUrl::fromLocalFile(path).toEncoded();
    GList urls{url.data(), nullptr, nullptr};
    GError* error = nullptr;
    return g_app_info_launch_uris(program, &urls, nullptr, &error) ? FileOpener::Outcome() : failed(error);
}

} // namespace

std::vector<FileProgram> GioFileOpener::openers(const QString& fileName) const
{
    const QByteArray type = typeOf(fileName, QMimeDatabase::MatchExtension);
    std::vector<FileProgram> programs = associatedWith(type);
    if (const AppInfo preferred = preferredFor(type)) {
        const FileProgram first = programOf(preferred.get());
        std::erase(programs, first);
        programs.insert(programs.begin(), first);
    }
    return programs;
}

FileOpener::Outcome GioFileOpener::open(const QString& path, const std::optional<QString>& programID) const
{
    const AppInfo program =
        programID ? programWith(*programID) : preferredFor(typeOf(path, QMimeDatabase::MatchDefault));
    return program ? launch(program.get(), path) : Outcome(std::unexpected("there is no program for it"));
}

FileOpener::Outcome GioFileOpener::prefer(const QString& fileName, const QString& programID) const
{
    const AppInfo program = programWith(programID);
    if (!program)
        return std::unexpected("there is no such program");
    const QByteArray type = typeOf(fileName, QMimeDatabase::MatchExtension);
    GError* error = nullptr;
    return g_app_info_set_as_default_for_type(program.get(), type.constData(), &error) ? Outcome() : failed(error);
}

} // namespace Kovrel

extern "C" Q_DECL_EXPORT const Kovrel::FileOpener* kovrelFileOpener()
{
    static const Kovrel::GioFileOpener opener;
    return &opener;
}
