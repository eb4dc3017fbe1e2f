#pragma once

#include "editor/marks/Annotation.h"

#include <QByteArray>
#include <QStringList>

#include <map>
#include <optional>
#include <string>
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

// The PNGs of images, each of which is encoded once. Whoever writes the same list again keeps them.
class StickerPngs {
public:
    // In Base64; nothing for an image that can't be encoded.
    const std::optional<std::string>& of(const QImage& image);

private:
    std::map<qint64, std::optional<std::string>> m_pngs; // by the images' keys
};

// What became of a list.
struct Written {
    QByteArray json;
    QStringList lost; // entries whose image can't be encoded, and is left out: "entry 3 (image)"
};

Written written(const std::vector<Annotation>& annotations, StickerPngs& pngs);
// The same, for those who can't do anything about lost images.
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
