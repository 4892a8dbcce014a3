#include "platform/updates/Appcast.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr std::size_t maxItems = 1000;
constexpr qsizetype longestNotes = 100'000;
constexpr qsizetype longestVersion = 100;

struct RawItem {
    QString shortVersion;
    QString version;
    QString notes;
    QString link;
    QString os;
};

void readEnclosure(const QXmlStreamAttributes &attributes, RawItem &item)
{
    for (const QXmlStreamAttribute &attribute : attributes) {
        if (attribute.name() == u"version")
            item.version = attribute.value().toString();
        else if (attribute.name() == u"shortVersionString")
            item.shortVersion = attribute.value().toString();
        else if (attribute.name() == u"os")
            item.os = attribute.value().toString();
    }
}

RawItem readItem(QXmlStreamReader &xml)
{
    RawItem item;
    while (xml.readNextStartElement()) {
        const QStringView name = xml.name();
        if (name == u"enclosure") {
            readEnclosure(xml.attributes(), item);
            xml.skipCurrentElement();
        } else if (name == u"version") {
            item.version = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        } else if (name == u"shortVersionString") {
            item.shortVersion = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        } else if (name == u"description") {
            item.notes =
                xml.readElementText(QXmlStreamReader::IncludeChildElements).left(longestNotes);
        } else if (name == u"link") {
            item.link = xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
        } else {
            xml.skipCurrentElement();
        }
    }
    return item;
}

bool isForThisSystem(const RawItem &item)
{
    return item.os.isEmpty() || item.os.compare(u"linux"_s, Qt::CaseInsensitive) == 0;
}

AppcastItem finished(const RawItem &raw)
{
    AppcastItem item;
    item.version = (raw.shortVersion.isEmpty() ? raw.version : raw.shortVersion)
                       .trimmed()
                       .left(longestVersion);
    item.notes = plainTextFromHtml(raw.notes);
    const QUrl page(raw.link, QUrl::StrictMode);
    if (page.isValid() && page.scheme() == u"https")
        item.page = page;
    return item;
}

/// A run of digits, or a run of letters.
struct VersionPart {
    bool isNumber;
    QString text;
};

std::vector<VersionPart> partsOf(const QString &version)
{
    std::vector<VersionPart> parts;
    static const QRegularExpression run(u"[0-9]+|[A-Za-z]+"_s);
    for (auto match = run.globalMatch(version); match.hasNext();) {
        const QString text = match.next().captured();
        parts.push_back({text.front().isDigit(), text.toLower()});
    }
    return parts;
}

std::weak_ordering compareNumbers(QString a, QString b)
{
    const auto withoutZeros = [](QString &digits) {
        qsizetype zeros = 0;
        while (zeros < digits.size() && digits.at(zeros) == u'0')
            ++zeros;
        digits.remove(0, zeros);
    };
    withoutZeros(a);
    withoutZeros(b);
    if (a.size() != b.size())
        return a.size() <=> b.size();
    return a.compare(b) <=> 0;
}

/// Removes the elements of that name with their content. An element without an end stays.
QString withoutElement(const QString &html, const QString &name)
{
    const QRegularExpression closing(u"</%1\\s*>"_s.arg(name),
                                     QRegularExpression::CaseInsensitiveOption);
    const QRegularExpression opening(u"<%1\\b[^>]*>"_s.arg(name),
                                     QRegularExpression::CaseInsensitiveOption);
    QString text;
    qsizetype kept = 0;
    for (;;) { // goes forward only, so that the time is linear
        const QRegularExpressionMatch begin = opening.match(html, kept);
        if (!begin.hasMatch())
            break;
        const QRegularExpressionMatch end = closing.match(html, begin.capturedEnd());
        if (!end.hasMatch())
            break;
        text += QStringView(html).mid(kept, begin.capturedStart() - kept);
        kept = end.capturedEnd();
    }
    text += QStringView(html).mid(kept);
    return text;
}

} // namespace

std::optional<std::vector<AppcastItem>> parseAppcast(const QByteArray &feed)
{
    QXmlStreamReader xml(feed);
    if (!xml.readNextStartElement() || xml.name() != u"rss")
        return std::nullopt;
    std::vector<AppcastItem> items;
    while (xml.readNextStartElement()) {
        if (xml.name() != u"channel") {
            xml.skipCurrentElement();
            continue;
        }
        while (xml.readNextStartElement()) {
            if (xml.name() != u"item" || items.size() >= maxItems) {
                xml.skipCurrentElement();
                continue;
            }
            const RawItem raw = readItem(xml);
            const AppcastItem item = finished(raw);
            if (!item.version.isEmpty() && isForThisSystem(raw))
                items.push_back(item);
        }
    }
    if (xml.hasError())
        return std::nullopt;
    return items;
}

std::weak_ordering compareVersions(const QString &a, const QString &b)
{
    const std::vector<VersionPart> left = partsOf(a);
    const std::vector<VersionPart> right = partsOf(b);
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
        // A missing part counts as zero, so that 1.0 equals 1. Letters mark a pre-release, so they
        // sort before a number.
        const VersionPart zero{true, u"0"_s};
        const VersionPart &l = i < left.size() ? left[i] : zero;
        const VersionPart &r = i < right.size() ? right[i] : zero;
        if (l.isNumber != r.isNumber)
            return l.isNumber ? std::weak_ordering::greater : std::weak_ordering::less;
        const std::weak_ordering order = l.isNumber
                                             ? compareNumbers(l.text, r.text)
                                             : std::weak_ordering(l.text.compare(r.text) <=> 0);
        if (order != 0)
            return order;
    }
    return std::weak_ordering::equivalent;
}

std::optional<AppcastItem> newestUpdate(const std::vector<AppcastItem> &items,
                                        const QString &current)
{
    const auto newest = std::max_element(items.begin(), items.end(),
                                         [](const AppcastItem &a, const AppcastItem &b) {
                                             return compareVersions(a.version, b.version) < 0;
                                         });
    if (newest == items.end() || compareVersions(newest->version, current) <= 0)
        return std::nullopt;
    return *newest;
}

QString plainTextFromHtml(const QString &html)
{
    static const QRegularExpression blank(u"[ \\t\\r\\n]+"_s);
    static const QRegularExpression listItem(u" ?<li\\b[^>]*> ?"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression block(u" ?</?(p|div|h[1-6]|ul|ol|br|tr)\\b[^>]*> ?"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression tag(u"<[^>]*>"_s);
    static const QRegularExpression lineBreaks(u" *\\n[ \\n]*"_s);
    QString text = html;
    const bool isHtml = text.contains(tag);
    for (const QString &name : {u"script"_s, u"style"_s})
        text = withoutElement(text, name);
    if (isHtml)
        text.replace(blank, u" "_s);
    text.replace(listItem, u"\n• "_s);
    text.replace(block, u"\n"_s);
    text.remove(tag);
    if (isHtml)
        text.replace(lineBreaks, u"\n"_s);
    text.replace(u"&lt;"_s, u"<"_s).replace(u"&gt;"_s, u">"_s).replace(u"&quot;"_s, u"\""_s);
    text.replace(u"&#39;"_s, u"'"_s).replace(u"&nbsp;"_s, u" "_s).replace(u"&amp;"_s, u"&"_s);
    return text.trimmed();
}

} // namespace lyrabox
