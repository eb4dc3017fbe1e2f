#include "editor/EditorBackdrop.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(EditorBackdrop, ReadsWhatItWrote)
{
    EXPECT_EQ(EditorBackdrop::decode(EditorBackdrop().encode()), EditorBackdrop());
}

} // namespace Kovrel
