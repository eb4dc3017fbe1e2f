#include "tests/editor/EditorWalk.h"

#include "tests/support/TestPictures.h"

namespace Kovrel::Testing {

namespace {

constexpr QSize size(160, 120); // image points
constexpr int beyond = 40;      // how far the pointer strays from the capture
constexpr size_t mostMarks = 60;

const QStringList texts{
    "a", "word ", "\n", "שלום", "naïve", "👩‍👩‍👧", "\t", "ﬁ", "long enough to be wrapped ", ""};

EditorCapture captureAt(double scale)
{
    const QSize pixels = (QSizeF(size) * scale).toSize();
    return {QUuid::createUuid(), testPicture(pixels, Texture::blocks).convertToFormat(QImage::Format_RGB32), scale,
            std::nullopt};
}

} // namespace

EditorWalk::EditorWalk(unsigned seed, double scale)
    : m_random(seed, size, testPicture({20, 30}, Texture::noise)), m_capture(captureAt(scale))
{
    Preferences::registerDefaults(m_defaults);
    reopen({});
}

void EditorWalk::reopen(EditorDocument document)
{
    m_pointing.reset();
    m_session = std::make_unique<EditorSession>(m_capture, std::move(document), m_preferences);
    m_pointing = std::make_unique<EditorPointing>(*m_session);
}

void EditorWalk::step()
{
    constexpr std::array<Action, 24> actions{
        &EditorWalk::drag,           &EditorWalk::drag,
        &EditorWalk::drag,           &EditorWalk::drag,
        &EditorWalk::drag,           &EditorWalk::drag,
        &EditorWalk::click,          &EditorWalk::click,
        &EditorWalk::click,          &EditorWalk::chooseTool,
        &EditorWalk::chooseTool,     &EditorWalk::chooseTool,
        &EditorWalk::restyle,        &EditorWalk::restyle,
        &EditorWalk::nudge,          &EditorWalk::remove,
        &EditorWalk::duplicate,      &EditorWalk::reorder,
        &EditorWalk::selectSome,     &EditorWalk::paste,
        &EditorWalk::changeBackdrop, &EditorWalk::changeOutputSize,
        &EditorWalk::undoSome,       &EditorWalk::redoSome,
    };
    (this->*actions[size_t(m_random.below(int(actions.size())))])();
    if (m_session->document().marks.size() > mostMarks) {
        m_session->selectAll();
        m_session->removeSelected();
    }
}

CanvasPointer EditorWalk::pointer()
{
    const auto at = [this](int length) { return m_random.below(4 * (length + 2 * beyond)) / 4.0 - beyond; };
    return {.at = {at(size.width()), at(size.height())},
            .pixel = std::array{0.25, 1.0, 3.0}[size_t(m_random.below(3))],
            .shift = oneIn(4),
            .alt = oneIn(4),
            .control = oneIn(4),
            .clicks = oneIn(4) ? 2 : 1};
}

void EditorWalk::chooseTool()
{
    m_session->setTool(EditorTool(m_random.below(16)));
}

void EditorWalk::drag()
{
    m_pointing->press(pointer());
    for (int moves = m_random.below(6); moves > 0; --moves) {
        m_pointing->move(pointer());
        if (oneIn(20))
            m_session->setStyle({.colorHex = "#30D158"});
        if (oneIn(20))
            return m_pointing->cancel();
    }
    if (const auto label = m_pointing->release(pointer()))
        write(*label);
}

void EditorWalk::click()
{
    const CanvasPointer place = pointer();
    m_pointing->press(place);
    if (const auto label = m_pointing->release(place))
        write(*label);
}

void EditorWalk::write(QUuid label)
{
    LabelEditing writing(*m_session, label);
    for (int keys = m_random.below(12); keys > 0; --keys)
        writeSomething(writing);
    writing.finish();
}

void EditorWalk::writeSomething(LabelEditing& writing)
{
    const auto text = [this] { return texts[m_random.below(int(texts.size()))]; };
    const auto move = [this] { return LabelEditing::Move(m_random.below(10)); };
    switch (m_random.below(9)) {
    case 0:
        return writing.move(move(), oneIn(2));
    case 1:
        return writing.erase(move());
    case 2:
        return writing.compose(text(), 0);
    case 3:
        return void(writing.undo());
    case 4:
        return void(writing.redo());
    case 5:
        return writing.placeCaret(pointer().at, oneIn(2));
    case 6:
        return writing.selectWord(pointer().at);
    default:
        return writing.insert(text());
    }
}

void EditorWalk::restyle()
{
    m_session->setStyle(MarkStyle::of(m_random.mark()));
}

void EditorWalk::nudge()
{
    m_session->moveBy({double(m_random.below(5) - 2), double(m_random.below(5) - 2)}, "nudge");
}

void EditorWalk::remove()
{
    if (oneIn(3))
        m_session->removeSelected();
}

void EditorWalk::duplicate()
{
    m_session->duplicateSelected();
}

void EditorWalk::reorder()
{
    m_session->bring(EditorSession::Layer(m_random.below(4)));
}

void EditorWalk::selectSome()
{
    if (oneIn(3))
        return m_session->selectAll();
    std::vector<QUuid> ids;
    for (const Annotation& mark : m_session->document().marks)
        if (oneIn(4))
            ids.push_back(mark.id);
    m_session->select(std::move(ids));
}

void EditorWalk::paste()
{
    m_session->paste(m_random.some(), {double(m_random.below(20)), 0});
}

void EditorWalk::changeBackdrop()
{
    EditorDocument next = m_session->document();
    EditorBackdrop backdrop;
    backdrop.padding = m_random.below(10) / 20.0;
    backdrop.corners = m_random.below(30);
    backdrop.frame = m_random.below(3);
    backdrop.autoBalance = oneIn(3);
    backdrop.shadowLight = {m_random.below(3) - 1.0, m_random.below(3) - 1.0};
    if (oneIn(3))
        backdrop.fill = {BackdropFill::Kind::color, "#12AB34"};
    if (oneIn(3))
        backdrop.aspect = AspectRatio{16, 9};
    next.composition.backdrop = oneIn(2) ? EditorBackdrop::none : backdrop;
    m_session->change(std::move(next), oneIn(2) ? "padding" : "");
}

void EditorWalk::changeOutputSize()
{
    EditorDocument next = m_session->document();
    next.composition.outputSize = oneIn(2) ? CropOutputSize() : CropOutputSize::ofWidth(8 + m_random.below(200));
    m_session->change(std::move(next));
}

void EditorWalk::undoSome()
{
    for (int steps = m_random.below(8); steps > 0; --steps)
        m_session->undo();
}

void EditorWalk::redoSome()
{
    for (int steps = m_random.below(8); steps > 0; --steps)
        m_session->redo();
}

} // namespace Kovrel::Testing
