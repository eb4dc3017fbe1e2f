#include "platform/recognisers/LanguageData.h"

#include "model/RecogniserLanguage.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <tesseract/baseapi.h>

#include <cstring>
#include <dlfcn.h>

namespace Kovrel {

namespace {

// A model begins with the number of its parts (32 bits) and their offsets (64 bits, -1: not there).
constexpr size_t wordListParts[] = {6, 7, 8, 9, 14, 15, 18, 19, 20};

template <class Number>
Number numberAt(const std::vector<char>& data, size_t offset)
{
    Number number{};
    std::memcpy(&number, data.data() + offset, sizeof number);
    return number;
}

template <class Number>
void append(std::vector<char>& data, Number number)
{
    const auto* const bytes = reinterpret_cast<const char*>(&number);
    data.insert(data.end(), bytes, bytes + sizeof number);
}

// The offsets of a model's parts, and its end behind them; empty for what is no model.
std::vector<qint64> partOffsets(const std::vector<char>& data)
{
    if (data.size() < sizeof(qint32))
        return {};
    const auto count = numberAt<qint32>(data, 0);
    if (count <= 0 || data.size() < sizeof(qint32) + size_t(count) * sizeof(qint64))
        return {};
    std::vector<qint64> offsets;
    offsets.reserve(size_t(count) + 1);
    for (size_t part = 0; part < size_t(count); ++part)
        offsets.push_back(numberAt<qint64>(data, sizeof(qint32) + part * sizeof(qint64)));
    offsets.push_back(qint64(data.size()));
    return offsets;
}

qint64 endOfPart(const std::vector<qint64>& offsets, size_t part)
{
    const auto next =
        std::find_if(offsets.begin() + qsizetype(part) + 1, offsets.end(), [](qint64 o) { return o >= 0; });
    return *next;
}

bool holds(const std::vector<char>& data, qint64 begin, qint64 end)
{
    return begin >= 0 && begin <= end && end <= qint64(data.size());
}

bool isWordList(size_t part)
{
    return std::ranges::find(wordListParts, part) != std::end(wordListParts);
}

std::vector<char> withoutWordLists(const std::vector<char>& data)
{
    const std::vector<qint64> offsets = partOffsets(data);
    if (offsets.empty())
        return data;
    const size_t count = offsets.size() - 1;
    std::vector<char> head;
    std::vector<char> body;
    append(head, qint32(count));
    for (size_t part = 0; part < count; ++part) {
        const bool stays = !isWordList(part) && holds(data, offsets[part], endOfPart(offsets, part));
        append(head, stays ? qint64(sizeof(qint32) + count * sizeof(qint64) + body.size()) : qint64(-1));
        if (stays)
            body.insert(body.end(), data.begin() + offsets[part], data.begin() + endOfPart(offsets, part));
    }
    head.insert(head.end(), body.begin(), body.end());
    return head;
}

// Where the library looks of itself is told after it has looked.
QString builtInFolder()
{
    tesseract::TessBaseAPI library;
    library.SetVariable("debug_file", "/dev/null");
    library.Init(nullptr, "eng");
    return QString::fromUtf8(library.GetDatapath());
}

QString libraryPath()
{
    Dl_info library{};
    ::dladdr(reinterpret_cast<const void*>(&tesseract::TessBaseAPI::Version), &library);
    return QFile::decodeName(library.dli_fname);
}

QStringList modelsOf(const QStringList& languages, const QStringList& available)
{
    QStringList models;
    for (const QString& language : languages)
        if (const QString model = RecogniserLanguage::model(language);
            available.contains(model) && !models.contains(model))
            models << model;
    return models;
}

} // namespace

QString LanguageData::folder()
{
    if (qEnvironmentVariableIsSet("TESSDATA_PREFIX"))
        return qEnvironmentVariable("TESSDATA_PREFIX");
    static const QString folder = builtInFolder();
    return folder;
}

QStringList LanguageData::installed()
{
    QStringList models;
    for (const QString& file : QDir(folder()).entryList({"*.traineddata"}, QDir::Files, QDir::Name))
        models << file.chopped(qsizetype(std::strlen(".traineddata")));
    models.removeAll("osd"); // tells scripts apart, nothing more
    models.removeAll("equ");
    return models;
}

QStringList LanguageData::chosen(const QStringList& wanted)
{
    const QStringList available = installed();
    QStringList models = modelsOf(wanted.isEmpty() ? QLocale::system().uiLanguages() : wanted, available);
    if (!models.isEmpty() || available.isEmpty())
        return models;
    return {available.contains("eng") ? QString("eng") : available.first()};
}

// Files of packages are as old as the packages, but their status changes when they are installed.
QDateTime LanguageData::changed(const QStringList& wanted)
{
    QDateTime latest = QFileInfo(libraryPath()).metadataChangeTime();
    for (const QString& model : chosen(wanted))
        latest = std::max(latest, QFileInfo(folder() + '/' + model + ".traineddata").metadataChangeTime());
    return latest;
}

bool LanguageData::readWithoutWordLists(const char* path, std::vector<char>* data)
{
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    *data = withoutWordLists({bytes.begin(), bytes.end()});
    return true;
}

} // namespace Kovrel
