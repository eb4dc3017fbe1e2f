#pragma once

#include "editor/marks/Annotation.h"

#include <QByteArray>
#include <QStringList>

#include <string_view>

namespace Kovrel {

// One entry of a stored list: an annotation, or nothing where the entry is not one. Kinds that a later version wrote, a
// missing required field, a value of a wrong type, broken JSON or broken UTF-8 cost only the entry that has them.
struct LossyAnnotation {
    std::optional<Annotation> annotation;

    // The JSON of one object. An image is left out when it has more than `pixels` pixels; else its pixels are taken
    // off.
    static LossyAnnotation decoded(std::string_view json, qint64& pixels);
};

// The persisted form of a list of annotations: a JSON array of objects. Any thread; images are encoded and decoded, so
// not on the main one.
namespace AnnotationJson {

// What the images of a list may take in memory together, in pixels.
constexpr qint64 mostImagePixels = 256'000'000;

QByteArray encoded(const std::vector<Annotation>& annotations);

// What was found in a list.
struct Reading {
    std::vector<Annotation> annotations;
    // Entries that are no annotations, or not wholly, the first hundred of them: "entry 3 (blackout)".
    QStringList damaged;
};

// The entries that are annotations, in their order, each with an identity of its own. Redactions count as long as their
// kind and their place can be understood. Nothing where the data is no array at all; of an array that is cut off, what
// came before.
std::optional<Reading> read(const QByteArray& json);
// The same, for those who can't do anything about damage.
std::optional<std::vector<Annotation>> decoded(const QByteArray& json);

} // namespace AnnotationJson

} // namespace Kovrel
