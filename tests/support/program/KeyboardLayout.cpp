#include "support/program/KeyboardLayout.h"

#include <xkbcommon/xkbcommon.h>

#include <cstdlib>

namespace lyrabox::test {
namespace {

/// XKB's key codes start here.
constexpr xkb_keycode_t firstCode = 8;

xkb_keymap *makeKeymap(xkb_context *context)
{
    const xkb_rule_names american{
        .rules = "evdev", .model = "pc105", .layout = "us", .variant = nullptr, .options = nullptr};
    return xkb_keymap_new_from_names(context, &american, XKB_KEYMAP_COMPILE_NO_FLAGS);
}

} // namespace

KeyboardLayout::KeyboardLayout()
    : m_context(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES), &xkb_context_unref),
      m_keymap(makeKeymap(m_context.get()), &xkb_keymap_unref),
      m_state(xkb_state_new(m_keymap.get()), &xkb_state_unref)
{}

KeyboardLayout::~KeyboardLayout() = default;

std::optional<KeyboardLayout::Key> KeyboardLayout::keyOfSymbol(const QString &name) const
{
    const xkb_keysym_t symbol =
        xkb_keysym_from_name(name.toLatin1().constData(), XKB_KEYSYM_NO_FLAGS);
    return symbol == XKB_KEY_NoSymbol ? std::nullopt : find(symbol);
}

std::optional<KeyboardLayout::Key> KeyboardLayout::keyOfCharacter(QChar character) const
{
    return find(xkb_utf32_to_keysym(character.unicode()));
}

void KeyboardLayout::setKey(quint32 code, bool down)
{
    xkb_state_update_key(m_state.get(), code + firstCode, down ? XKB_KEY_DOWN : XKB_KEY_UP);
}

quint32 KeyboardLayout::depressedModifiers() const
{
    return xkb_state_serialize_mods(m_state.get(), XKB_STATE_MODS_DEPRESSED);
}

quint32 KeyboardLayout::lockedModifiers() const
{
    return xkb_state_serialize_mods(m_state.get(), XKB_STATE_MODS_LOCKED);
}

QByteArray KeyboardLayout::text() const
{
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(m_keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), &std::free);
    return text.get();
}

std::optional<KeyboardLayout::Key> KeyboardLayout::find(quint32 symbol) const
{
    constexpr xkb_layout_index_t layout = 0;
    const xkb_keycode_t last = xkb_keymap_max_keycode(m_keymap.get());
    for (const xkb_level_index_t level : {0U, 1U}) {
        for (xkb_keycode_t code = xkb_keymap_min_keycode(m_keymap.get()); code <= last; ++code) {
            const xkb_keysym_t *symbols = nullptr;
            const int count =
                xkb_keymap_key_get_syms_by_level(m_keymap.get(), code, layout, level, &symbols);
            if (count == 1 && symbols[0] == symbol)
                return Key{.code = code - firstCode, .needsShift = level == 1};
        }
    }
    return std::nullopt;
}

} // namespace lyrabox::test
