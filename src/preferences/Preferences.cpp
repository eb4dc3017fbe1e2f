#include "preferences/Preferences.h"

#include "preferences/PreferenceTable.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QStandardPaths>
#include <QUrl>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.preferences")

QString toolKey(const char* key, EditorTool tool)
{
    return QString::fromLatin1(key) + '.' + rawString(tool);
}

QString orderKey(BackdropChips chips)
{
    switch (chips) {
    case BackdropChips::pictures:
        return "backdropPictureOrder";
    case BackdropChips::colors:
        return "backdropColorOrder";
    case BackdropChips::gradients:
        return "backdropGradientOrder";
    }
    return {};
}

QString hiddenKey(BackdropChips chips)
{
    switch (chips) {
    case BackdropChips::pictures:
        return "backdropPicturesHidden";
    case BackdropChips::colors:
        return "backdropColorsHidden";
    case BackdropChips::gradients:
        return "backdropGradientsHidden";
    }
    return {};
}

} // namespace

void Preferences::registerDefaults(UserDefaults& defaults)
{
    defaults.registerDefaults(PreferenceTable::registeredDefaults());
}

template <class Enum>
Enum Preferences::enumerated(const QString& key, Enum fallback) const
{
    return fromRawString<Enum>(m_defaults.text(key)).value_or(fallback);
}

AfterCaptureActions Preferences::afterCaptureActions() const
{
    return AfterCaptureActions::fromInt(int(m_defaults.integer("afterCaptureActions")));
}

AutoCloseAction Preferences::autoCloseAction() const
{
    return enumerated("previewAutoCloseAction", AutoCloseAction::justClose);
}

CaptureSound Preferences::captureSound() const
{
    return enumerated("captureSound", CaptureSound::pop);
}

QString Preferences::fileNameTemplate() const
{
    return m_defaults.text("fileNameTemplate");
}

ImageFormat Preferences::imageFormat() const
{
    return enumerated("imageFormat", ImageFormat::png);
}

MeasureUnit Preferences::measureUnit() const
{
    return enumerated("measureUnit", MeasureUnit::pixels);
}

int Preferences::selfTimerSeconds() const
{
    const qint64 seconds = m_defaults.integer("selfTimerSeconds");
    return seconds < 1 ? 5 : int(std::min<qint64>(seconds, 24 * 60 * 60));
}

WindowBackdropStyle Preferences::windowBackdropStyle() const
{
    return enumerated("windowBackdropStyle", WindowBackdropStyle::wallpaper);
}

std::optional<KeyCombo> Preferences::hotkey(const QString& key) const
{
    return KeyCombo::fromStored(m_defaults.integer(key));
}

AnnotationFillStyle Preferences::annotationFillStyle() const
{
    return enumerated("annotationFillStyle", AnnotationFillStyle::outline);
}

AnnotationTextStyle Preferences::annotationTextStyle() const
{
    return enumerated("annotationTextStyle", AnnotationTextStyle::bubble);
}

void Preferences::setAnnotationTextStyle(AnnotationTextStyle style)
{
    m_defaults.set("annotationTextStyle", rawString(style));
}

QString Preferences::toolColorHex(EditorTool tool) const
{
    if (const QString own = m_defaults.text(toolKey("annotationColorHex", tool)); !own.isEmpty())
        return own;
    // Yellow is what a marker is expected to be, whatever colour arrows have.
    if (tool == EditorTool::highlighter || tool == EditorTool::text)
        return "#FFDC2C";
    return m_defaults.text("annotationColorHex");
}

void Preferences::setToolColorHex(const QString& hex, EditorTool tool)
{
    m_defaults.set(toolKey("annotationColorHex", tool), hex);
}

double Preferences::toolStrokeWidth(EditorTool tool) const
{
    if (const double own = m_defaults.real(toolKey("annotationStrokeWidth", tool)); own > 0)
        return own;
    // Both rectangle tools make the same mark, so a width chosen for one is expected of the other.
    const auto twin = tool == EditorTool::rectangle         ? std::optional(EditorTool::rectangleFilled)
                      : tool == EditorTool::rectangleFilled ? std::optional(EditorTool::rectangle)
                                                            : std::nullopt;
    if (twin)
        if (const double width = m_defaults.real(toolKey("annotationStrokeWidth", *twin)); width > 0)
            return width;
    return m_defaults.real("annotationStrokeWidth");
}

AnnotationFillStyle Preferences::toolFillStyle(EditorTool tool) const
{
    const AnnotationFillStyle usual = tool == EditorTool::rectangle         ? AnnotationFillStyle::outline
                                      : tool == EditorTool::rectangleFilled ? AnnotationFillStyle::filled
                                                                            : annotationFillStyle();
    return enumerated(toolKey("annotationFillStyle", tool), usual);
}

void Preferences::setToolFillStyle(AnnotationFillStyle style, EditorTool tool)
{
    m_defaults.set(toolKey("annotationFillStyle", tool), rawString(style));
}

bool Preferences::toolRoundedCorners(EditorTool tool) const
{
    const QString key = toolKey("annotationRoundedCorners", tool);
    return m_defaults.boolean(m_defaults.isStored(key) ? key : QString("annotationRoundedCorners"));
}

QByteArray Preferences::backdropPresets() const
{
    return m_defaults.data("backdropPresets");
}

void Preferences::setBackdropPresets(const QByteArray& json)
{
    m_defaults.set("backdropPresets", json);
}

QByteArray Preferences::lastBackdrop() const
{
    return m_defaults.data("lastBackdrop");
}

void Preferences::setLastBackdrop(const QByteArray& json)
{
    m_defaults.set("lastBackdrop", json);
}

QStringList Preferences::backdropCustomColors() const
{
    return m_defaults.textList("backdropCustomColors");
}

QStringList Preferences::backdropRowOrder(BackdropChips chips) const
{
    return m_defaults.textList(orderKey(chips));
}

void Preferences::setBackdropRowOrder(const QStringList& order, BackdropChips chips)
{
    m_defaults.set(orderKey(chips), order);
}

QStringList Preferences::hiddenBackdropChips(BackdropChips chips) const
{
    return m_defaults.textList(hiddenKey(chips));
}

void Preferences::setHiddenBackdropChips(const QStringList& hidden, BackdropChips chips)
{
    m_defaults.set(hiddenKey(chips), hidden);
}

QString Preferences::defaultSaveDirectory()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).filePath("Kovrel");
}

bool Preferences::ensureDefaultSaveDirectoryExists()
{
    return QDir().mkpath(defaultSaveDirectory());
}

QString Preferences::resolvedSaveDirectory() const
{
    const QByteArray bookmark = m_defaults.data("saveLocationBookmark");
    const QUrl chosen = QUrl::fromEncoded(bookmark, QUrl::StrictMode);
    if (chosen.isLocalFile() && QFileInfo(chosen.toLocalFile()).isDir())
        return chosen.toLocalFile();
    if (!bookmark.isEmpty())
        qCWarning(log, "The save folder %s is not there; captures go to %s", bookmark.constData(),
                  qUtf8Printable(defaultSaveDirectory()));
    return defaultSaveDirectory();
}

void Preferences::setSaveDirectory(const QString& path)
{
    m_defaults.set("saveLocationBookmark", QUrl::fromLocalFile(path).toEncoded());
}

} // namespace Kovrel
