#include "WorkSongs.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::work {

TrackRecordList inventedSongs(std::size_t count)
{
    std::mt19937 random(3);
    const QStringList words{u"Love"_s,    u"Night"_s,  u"Blue"_s,  u"Étude"_s, u"Train"_s,
                            u"Morning"_s, u"River"_s,  u"the"_s,   u"of"_s,    u"in"_s,
                            u"Dance"_s,   u"Song"_s,   u"Heart"_s, u"Stone"_s, u"Winter"_s,
                            u"Road"_s,    u"Golden"_s, u"You"_s,   u"Never"_s, u"Café"_s};
    const auto text = [&](unsigned most) {
        QStringList made;
        for (unsigned n = 1 + random() % most; n > 0; --n)
            made.append(
                words.at(static_cast<qsizetype>(random() % static_cast<unsigned>(words.size()))));
        return made.join(u' ');
    };
    TrackRecordList list;
    list.reserve(count);
    QString artist;
    QString album;
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 10 == 0) {
            artist = text(2) + u' ' + QString::number(random() % 900);
            album = text(3);
        }
        auto record = std::make_shared<TrackRecord>();
        record->title =
            text(5) + (i % 3 == 0 ? u" No. "_s + QString::number(random() % 500) : QString());
        record->artist = artist;
        record->album = album;
        record->durationSeconds = 60.0F + static_cast<float>(random() % 60000) / 100.0F;
        record->inode = QString::number(1000000 + i);
        record->order = static_cast<int>(i) + 1;
        list.push_back(std::move(record));
    }
    return list;
}

} // namespace lyrabox::work
