#pragma once

#include <QDateTime>
#include <QStringList>

#include <vector>

namespace Kovrel {

// The language models that are installed for Tesseract. Stateless; any thread.
namespace LanguageData {

// The folder of the models: where TESSDATA_PREFIX says, else where the library was built to look.
QString folder();

// Codes as the models are named: "eng", "deu", "chi_sim".
QStringList installed();

// The installed ones among the wanted languages, which are codes like "de", "de-AT" or "deu"; when none is wanted,
// those of the desktop. English or else the first one there is, when none of them is installed; empty without any
// model.
QStringList chosen(const QStringList& wanted);

// When the models that are chosen so, or the library, came onto this computer last.
QDateTime changed(const QStringList& wanted);

// For tesseract::TessBaseAPI::Init: reads a model and leaves out its lists of words, which no setting turns off for
// neural models.
bool readWithoutWordLists(const char* path, std::vector<char>* data);

} // namespace LanguageData

} // namespace Kovrel
