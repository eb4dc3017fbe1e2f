#pragma once

#include <QString>

namespace Kovrel {

// The languages of text recognition by the names of their models, "deu" or "chi_sim". Stateless; any thread.
namespace RecogniserLanguage {

// The name of the model for a language, "de-AT" or "deu" say. What is no code of a language comes back as it is.
QString model(const QString& language);

// What the language calls itself; the model's name where that is not known.
QString title(const QString& model);

// Debian's package with the model; empty for what can't be a model.
QString package(const QString& model);

} // namespace RecogniserLanguage

} // namespace Kovrel
