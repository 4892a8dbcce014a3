#include "platform/ui/MenuText.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

QString withoutMnemonic(const QString &menuText)
{
    static const QRegularExpression letterInBrackets(u" ?\\(&\\w\\)"_s);
    return QString(menuText).remove(letterInBrackets).remove(u'&');
}

} // namespace lyrabox
