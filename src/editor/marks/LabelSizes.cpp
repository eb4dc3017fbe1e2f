#include "editor/marks/LabelSizes.h"

#include "editor/marks/LabelText.h"

#include <QCache>

namespace Kovrel {

namespace {

struct Key {
    QString text;
    double fontSize = 0;
    std::optional<double> wrapWidth;
    bool operator==(const Key&) const = default;
};

size_t qHash(const Key& key, size_t seed = 0)
{
    return qHashMulti(seed, key.text, key.fontSize, key.wrapWidth.value_or(-1));
}

constexpr qsizetype mostCharacters = 100'000; // remembered, of all texts together

} // namespace

Size LabelSizes::of(const QString& text, double fontSize, std::optional<double> wrapWidth)
{
    thread_local QCache<Key, Size> known(mostCharacters);
    const Key key{text, fontSize, wrapWidth};
    if (const Size* const size = known.object(key))
        return *size;
    const Size size = LabelText(text, fontSize, wrapWidth).size();
    known.insert(key, new Size(size), text.size() + 1);
    return size;
}

} // namespace Kovrel
