#include "platform/midi/MidiModule.h"

#include "platform/foundation/Files.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

MidiModule::MidiModule(const QString &path)
    : m_module(path, midiVersionName),
      m_makeMidiInput(m_module.find<MakeMidiInputFunction>(makeMidiInputName))
{}

std::unique_ptr<MidiInput> MidiModule::makeMidiInput() const
{
    return std::unique_ptr<MidiInput>(failure().isEmpty() ? m_makeMidiInput() : nullptr);
}

const MidiModule &midiModule()
{
    static const MidiModule theModule(
        QDir(files::moduleDirectory()).filePath(u"lyrabox-midi.so"_s));
    return theModule;
}

} // namespace lyrabox
