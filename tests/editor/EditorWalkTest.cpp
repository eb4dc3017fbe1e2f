#include "tests/editor/EditorWalk.h"

#include "editor/EditedPicture.h"
#include "editor/json/AnnotationJson.h"
#include "editor/marks/RedactionSources.h"
#include "tests/support/PictureDifference.h"

#include <gtest/gtest.h>

#include <set>

namespace Kovrel {

namespace {

using Testing::EditorWalk;

// More of them, and from another seed, by hand:
//   KOVREL_WALK=100000 KOVREL_WALK_SEED=7 build/asan/tests/test_editor --gtest_filter='EditorWalk*'
int gestures()
{
    const int asked = qEnvironmentVariableIntValue("KOVREL_WALK");
    return asked > 0 ? asked : 2000;
}

constexpr int untilReopened = 125; // gestures; fewer than the steps that are gone back

// As the history keeps marks and backdrop. Marks get new identities when they are read.
EditorDocument reloaded(const EditorDocument& document)
{
    EditorDocument again = document;
    again.marks = AnnotationJson::decoded(AnnotationJson::encoded(document.marks)).value();
    for (size_t index = 0; index < std::min(again.marks.size(), document.marks.size()); ++index)
        again.marks[index].id = document.marks[index].id;
    again.composition.backdrop = EditorBackdrop::decode(document.composition.backdrop.encode()).value();
    return again;
}

bool isFinite(const Annotation& mark)
{
    const Rect bounds = mark.rotationRect();
    return std::isfinite(bounds.minX() + bounds.maxX() + bounds.minY() + bounds.maxY() + mark.rotation);
}

void expectSound(const EditorSession& session)
{
    std::set<QUuid> ids;
    for (const Annotation& mark : session.document().marks) {
        EXPECT_TRUE(ids.insert(mark.id).second) << "two marks are one";
        EXPECT_TRUE(isFinite(mark));
        EXPECT_FALSE(mark.points.empty());
        EXPECT_TRUE(mark.kind != Annotation::Kind::text || !mark.text.isEmpty()) << "an empty label stays";
    }
    for (const QUuid id : session.selection())
        EXPECT_TRUE(ids.contains(id)) << "what is gone is selected";
}

void expectUndoneAndRedone(EditorSession& session, const EditorDocument& start)
{
    const EditorDocument end = session.document();
    int steps = 0;
    for (; session.canUndo(); ++steps)
        session.undo();
    EXPECT_TRUE(session.document() == start) << "undone is not the start";
    for (; steps > 0; --steps)
        session.redo();
    EXPECT_TRUE(session.document() == end) << "redone is not the end";
}

CanvasPicture::Redactions redactionsOf(const EditorCapture& capture)
{
    return {RedactionSources::blurred(capture.image, capture.scale),
            RedactionSources::pixelated(capture.image, capture.scale)};
}

CanvasPicture canvasOf(const EditorCapture& capture, const CanvasPicture::Redactions& redactions, double share)
{
    CanvasPicture canvas(capture);
    canvas.setRedactions(redactions);
    canvas.setShare(share);
    return canvas;
}

struct EditorWalkTest : testing::Test {
    // From `start` on; false where something is wrong with a step.
    static bool walked(EditorWalk& walk, const EditorDocument& start, double share)
    {
        const auto redactions = redactionsOf(walk.capture());
        CanvasPicture canvas = canvasOf(walk.capture(), redactions, share);
        canvas.setDocument(start);
        for (int gesture = 0; gesture < untilReopened && !HasFailure(); ++gesture) {
            walk.step();
            canvas.setDocument(walk.session().document());
            expectSound(walk.session());
        }
        // What was shown step after step is what is shown of the last step alone.
        CanvasPicture fresh = canvasOf(walk.capture(), redactions, share);
        fresh.setDocument(walk.session().document());
        EXPECT_TRUE(Testing::samePicture(canvas.picture(), fresh.picture(), share == 1 ? 0 : 1));
        expectUndoneAndRedone(walk.session(), start);
        return !HasFailure();
    }
};

} // namespace

TEST_F(EditorWalkTest, NothingThatIsDoneToACaptureIsLostOrDrawnWrongly)
{
    unsigned seed = unsigned(std::max(1, qEnvironmentVariableIntValue("KOVREL_WALK_SEED")));
    for (int done = 0; done < gestures(); done += 2 * untilReopened, ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        EditorWalk walk(seed, std::array{1.0, 1.5, 2.0}[seed % 3]);
        const double share = seed % 2 == 0 ? 1 : 0.6;
        ASSERT_TRUE(walked(walk, {}, share));
        const EditorDocument kept = reloaded(walk.session().document());
        EXPECT_TRUE(kept == walk.session().document()) << "what is kept is something else";
        EXPECT_FALSE(EditedPicture::rendered(walk.capture(), kept, MeasureUnit::pixels).isNull());
        walk.reopen(kept);
        ASSERT_TRUE(walked(walk, kept, share));
    }
}

} // namespace Kovrel
