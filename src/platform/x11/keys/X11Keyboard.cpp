#include "platform/x11/keys/X11Keyboard.h"

#include "platform/x11/keys/X11VirtualKeys.h"

#include <QHashFunctions>

#include <algorithm>

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

namespace Kovrel {

namespace {

constexpr quint32 xOfLinuxKey = 8; // X key codes are Linux's plus this
constexpr quint32 lastKey = 255;

// Every combination of the bits.
std::vector<uint8_t> subsets(std::initializer_list<uint8_t> bits)
{
    std::vector<uint8_t> masks{0};
    for (const uint8_t bit : bits) {
        if (bit == 0 || (masks.back() & bit))
            continue;
        const size_t count = masks.size();
        for (size_t index = 0; index < count; ++index)
            masks.push_back(uint8_t(masks[index] | bit));
    }
    return masks;
}

} // namespace

X11Keyboard::X11Keyboard(X11Connection& connection)
    : m_connection(connection),
      // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, which the library adds up
      m_context(xkb_context_new(xkb_context_flags(XKB_CONTEXT_NO_DEFAULT_INCLUDES | XKB_CONTEXT_NO_ENVIRONMENT_NAMES)))
{
    if (connection.isAlive())
        xkb_x11_setup_xkb_extension(connection.handle(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                    XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &m_firstEvent, nullptr);
}

bool X11Keyboard::read()
{
    xcb_connection_t* const connection = m_connection.handle();
    const int32_t device = m_firstEvent ? xkb_x11_get_core_keyboard_device_id(connection) : -1;
    m_keymap.reset(
        device < 0 ? nullptr
                   : xkb_x11_keymap_new_from_device(m_context.get(), connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (m_keymap)
        readModifiers();
    const size_t before = std::exchange(m_fingerprint, fingerprint());
    return before != m_fingerprint;
}

// Every group of a key, from the current one on, and its levels, until the visitor has seen enough.
template <class Visitor>
void X11Keyboard::forEachSymbol(xkb_keycode_t key, Visitor goesOn) const
{
    const xkb_layout_index_t groups = xkb_keymap_num_layouts_for_key(m_keymap.get(), key);
    for (xkb_layout_index_t step = 0; step < groups; ++step) {
        const xkb_layout_index_t group = (m_group + step) % groups;
        const xkb_level_index_t levels = xkb_keymap_num_levels_for_key(m_keymap.get(), key, group);
        for (xkb_level_index_t level = 0; level < levels; ++level) {
            const xkb_keysym_t* symbols = nullptr;
            const int count = xkb_keymap_key_get_syms_by_level(m_keymap.get(), key, group, level, &symbols);
            if (count == 1 && !goesOn(int(step), int(level), *symbols))
                return;
        }
    }
}

// Of every symbol on the keyboard, and of the modifiers.
size_t X11Keyboard::fingerprint() const
{
    if (!m_keymap)
        return 0;
    size_t hash = qHashMulti(0, m_alt, m_super, m_lockStates.back());
    for (xkb_keycode_t key = xkb_keymap_min_keycode(m_keymap.get()); key <= lastKey; ++key)
        forEachSymbol(key, [&](int group, int level, xkb_keysym_t symbol) {
            hash = qHashMulti(hash, key, group, level, symbol);
            return true;
        });
    return hash;
}

// Which of the eight bits stands for Alt, Super and the lock keys is the layout's affair.
void X11Keyboard::readModifiers()
{
    const auto answer =
        m_connection.reply(xcb_get_modifier_mapping_reply, xcb_get_modifier_mapping(m_connection.handle()));
    if (!answer)
        return;
    std::vector<uint8_t> keyModifiers(lastKey + 1);
    const xcb_keycode_t* const keys = xcb_get_modifier_mapping_keycodes(answer.get());
    for (int index = 0; index < 8 * answer->keycodes_per_modifier; ++index)
        keyModifiers[keys[index]] |= uint8_t(1 << (index / answer->keycodes_per_modifier));
    keyModifiers[0] = 0; // an empty place
    m_keyModifiers = keyModifiers;
    const auto orUsual = [](uint8_t bit, uint8_t usual) { return bit ? bit : usual; };
    m_alt = orUsual(modifierOf(keyModifiers, {XKB_KEY_Alt_L, XKB_KEY_Alt_R}), XCB_MOD_MASK_1);
    m_super = orUsual(modifierOf(keyModifiers, {XKB_KEY_Super_L, XKB_KEY_Super_R}), XCB_MOD_MASK_4);
    m_lockStates = subsets({XCB_MOD_MASK_LOCK, modifierOf(keyModifiers, {XKB_KEY_Num_Lock}),
                            modifierOf(keyModifiers, {XKB_KEY_Scroll_Lock})});
}

// The lowest bit of a key that bears one of the symbols; 0 for none.
uint8_t X11Keyboard::modifierOf(const std::vector<uint8_t>& keyModifiers,
                                std::initializer_list<xkb_keysym_t> symbols) const
{
    for (const xkb_keysym_t symbol : symbols)
        for (const xcb_keycode_t key : keysBearing(symbol))
            if (keyModifiers[key])
                return uint8_t(keyModifiers[key] & -keyModifiers[key]);
    return 0;
}

std::vector<xcb_keycode_t> X11Keyboard::keysFor(quint32 virtualKeyCode) const
{
    if (!m_keymap)
        return {};
    const auto keys = X11VirtualKeys::all();
    const auto known = std::ranges::find(keys, virtualKeyCode, &X11VirtualKey::code);
    if (known == keys.end()) {
        const quint32 key = virtualKeyCode - KeyCombo::firstLinuxKey + xOfLinuxKey;
        return virtualKeyCode >= KeyCombo::firstLinuxKey && key <= lastKey ? std::vector{xcb_keycode_t(key)}
                                                                           : std::vector<xcb_keycode_t>();
    }
    auto bearing = keysBearing(known->symbol);
    if (!bearing.empty() || !known->place)
        return bearing;
    const xkb_keycode_t inPlace = xkb_keymap_key_by_name(m_keymap.get(), known->place);
    return inPlace <= lastKey ? std::vector{xcb_keycode_t(inPlace)} : std::vector<xcb_keycode_t>();
}

std::optional<quint32> X11Keyboard::virtualKeyCode(xcb_keycode_t key) const
{
    if (modifierBits(key))
        return std::nullopt;
    for (const X11VirtualKey& known : X11VirtualKeys::all())
        if (const auto keys = keysFor(known.code); std::ranges::find(keys, key) != keys.end())
            return known.code;
    return key < xOfLinuxKey ? std::nullopt : std::optional(KeyCombo::firstLinuxKey + key - xOfLinuxKey);
}

std::vector<xcb_keycode_t> X11Keyboard::keysBearing(xkb_keysym_t symbol) const
{
    std::vector<xcb_keycode_t> keys;
    std::optional<std::pair<int, int>> best;
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(m_keymap.get()), lastKey);
    for (xkb_keycode_t key = xkb_keymap_min_keycode(m_keymap.get()); key <= last; ++key) {
        const auto found = rank(key, symbol);
        if (!found || (best && *found > *best))
            continue;
        if (found != best)
            keys.clear();
        best = found;
        keys.push_back(xcb_keycode_t(key));
    }
    return keys;
}

// How well a key bears a symbol: the group, counted from the current one, then the level. Lower is better.
std::optional<std::pair<int, int>> X11Keyboard::rank(xkb_keycode_t key, xkb_keysym_t symbol) const
{
    std::optional<std::pair<int, int>> found;
    forEachSymbol(key, [&](int step, int level, xkb_keysym_t there) {
        if (there == symbol)
            found = {step, level};
        return !found;
    });
    return found;
}

uint8_t X11Keyboard::mask(quint32 modifiers) const
{
    return uint8_t((modifiers & KeyCombo::shift ? XCB_MOD_MASK_SHIFT : 0) |
                   (modifiers & KeyCombo::control ? XCB_MOD_MASK_CONTROL : 0) |
                   (modifiers & KeyCombo::option ? m_alt : 0) | (modifiers & KeyCombo::command ? m_super : 0));
}

quint32 X11Keyboard::modifiers(uint8_t mask) const
{
    return (mask & XCB_MOD_MASK_SHIFT ? KeyCombo::shift : 0u) | (mask & XCB_MOD_MASK_CONTROL ? KeyCombo::control : 0u) |
           (mask & m_alt ? KeyCombo::option : 0u) | (mask & m_super ? KeyCombo::command : 0u);
}

bool X11Keyboard::setGroup(xkb_layout_index_t group)
{
    return std::exchange(m_group, group) != group;
}

} // namespace Kovrel
