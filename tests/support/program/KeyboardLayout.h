#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

struct xkb_context;
struct xkb_keymap;
struct xkb_state;

namespace lyrabox::test {

/// The US keyboard layout: maps symbols to keys and keeps track of the pressed modifiers.
class KeyboardLayout {
public:
    KeyboardLayout();
    ~KeyboardLayout();
    KeyboardLayout(const KeyboardLayout &) = delete;
    KeyboardLayout &operator=(const KeyboardLayout &) = delete;

    /// A key, given by the kernel's key code.
    struct Key {
        quint32 code = 0;
        bool needsShift = false;
    };
    /// The key with the symbol of that name, such as "Return"; none if no key has it.
    std::optional<Key> keyOfSymbol(const QString &name) const;
    std::optional<Key> keyOfCharacter(QChar character) const;

    /// Records that a key is down or up.
    void setKey(quint32 code, bool down);
    quint32 depressedModifiers() const;
    quint32 lockedModifiers() const;

    /// The layout in XKB's text format, version 1.
    QByteArray text() const;

private:
    std::optional<Key> find(quint32 symbol) const;

    std::unique_ptr<xkb_context, void (*)(xkb_context *)> m_context;
    std::unique_ptr<xkb_keymap, void (*)(xkb_keymap *)> m_keymap;
    std::unique_ptr<xkb_state, void (*)(xkb_state *)> m_state;
};

} // namespace lyrabox::test
