#include "app/Translations.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace Kovrel {

namespace {

bool add(QCoreApplication& application, const QLocale& locale, const QString& name, const QString& folder)
{
    auto* const translator = new QTranslator(&application);
    return translator->load(locale, name, "_", folder) && QCoreApplication::installTranslator(translator);
}

} // namespace

// The dialogs of the toolkit are translated with us or not at all: both languages in one window would be neither.
void Translations::install(QCoreApplication& application)
{
    const QLocale locale = QLocale::system();
    if (!add(application, locale, "kovrel", ":/translations"))
        return;
    add(application, locale, "qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    QGuiApplication::setLayoutDirection(locale.textDirection());
}

} // namespace Kovrel
