#include "platform/audio/OutputModule.h"

#include "platform/foundation/Files.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

OutputModule::OutputModule(const QString &path)
    : m_module(path, outputVersionName),
      m_makeOutput(m_module.find<MakeOutputFunction>(makeOutputName)),
      m_makeWatcher(m_module.find<MakeDefaultOutputWatcherFunction>(makeDefaultOutputWatcherName))
{}

std::unique_ptr<OutputUnit> OutputModule::makeOutput() const
{
    return std::unique_ptr<OutputUnit>(failure().isEmpty() ? m_makeOutput() : nullptr);
}

std::unique_ptr<DefaultOutputWatcher> OutputModule::makeDefaultOutputWatcher() const
{
    return std::unique_ptr<DefaultOutputWatcher>(failure().isEmpty() ? m_makeWatcher() : nullptr);
}

const OutputModule &outputModule()
{
    static const OutputModule theModule = [] {
        OutputModule module(QDir(files::moduleDirectory()).filePath(u"lyrabox-output.so"_s));
        if (!module.failure().isEmpty())
            qWarning("The output device cannot be used (%s)", qPrintable(module.failure()));
        return module;
    }();
    return theModule;
}

} // namespace lyrabox
