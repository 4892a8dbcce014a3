#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

struct xkb_context;
struct xkb_keymap;
struct xkb_state;

namespace lyrabox::test {

/// The American keyboard: which key gives which symbol, and which modifiers the pressed keys make.
class KeyboardLayout {
public:
    KeyboardLayout();
    ~KeyboardLayout();
    KeyboardLayout(const KeyboardLayout &) = delete;
    KeyboardLayout &operator=(const KeyboardLayout &) = delete;

    /// A key by the kernel's code.
    struct Key {
        quint32 code = 0;
        bool needsShift = false;
    };
    /// By the name of its symbol, such as "Return"; nothing where no key has it.
    std::optional<Key> keyOfSymbol(const QString &name) const;
    std::optional<Key> keyOfCharacter(QChar character) const;

    /// Remembers that a key is down, or no longer.
    void setKey(quint32 code, bool down);
    quint32 depressedModifiers() const;
    quint32 lockedModifiers() const;

    /// The layout as text, in XKB's first format.
    QByteArray text() const;

private:
    std::optional<Key> find(quint32 symbol) const;

    std::unique_ptr<xkb_context, void (*)(xkb_context *)> m_context;
    std::unique_ptr<xkb_keymap, void (*)(xkb_keymap *)> m_keymap;
    std::unique_ptr<xkb_state, void (*)(xkb_state *)> m_state;
};

} // namespace lyrabox::test
