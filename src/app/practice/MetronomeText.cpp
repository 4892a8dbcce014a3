#include "app/practice/MetronomeText.h"

#include <QCoreApplication>

namespace lyrabox {

namespace {
struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::MetronomeText)
};
} // namespace

QString metronomeText::beatsMissing()
{
    return Text::tr("Tap the beat first: T");
}

QString metronomeText::beatsOrBarsMissing()
{
    return Text::tr("Tap the beat first: T. Or make a loop and say how many bars it has.");
}

} // namespace lyrabox
