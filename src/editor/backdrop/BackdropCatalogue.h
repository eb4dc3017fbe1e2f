#pragma once

#include "editor/backdrop/BackdropGradient.h"
#include "editor/backdrop/BackdropPicture.h"

#include <vector>

namespace Kovrel {

struct BackdropColor {
    QString id;
    QString name;
    QString hex;
    bool operator==(const BackdropColor&) const = default;
};

// The fills that come with Kovrel, in the order in which they are shown. Any thread.
namespace BackdropCatalogue {

const std::vector<BackdropGradient>& gradients();
const std::vector<BackdropPicture>& pictures();
const std::vector<BackdropColor>& colors();

// Null where the catalogue has none of that id.
const BackdropGradient* gradient(const QString& id);
const BackdropPicture* picture(const QString& id);

} // namespace BackdropCatalogue

} // namespace Kovrel
