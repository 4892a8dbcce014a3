#include "support/program/XDisplay.h"

#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

const QByteArray windowManagerSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <theme><keepBorder>no</keepBorder></theme>
  <desktops><number>1</number></desktops>
  <applications><application class="*"><decor>no</decor></application></applications>
</openbox_config>
)";

/// Reads the picture from the file in which the display keeps its pixels. It is an X window dump: a
/// header of big-endian words, the colours, the rows.
QImage readWindowDump(const QByteArray &dump)
{
    enum Word {
        HeaderSize,
        Width = 4,
        Height,
        BitsPerPixel = 11,
        BytesPerLine,
        Colors = 19,
        Words = 25
    };
    constexpr qsizetype bytesPerColor = 12;
    if (dump.size() < Words * 4)
        return {};
    const auto word = [&dump](int index) {
        return static_cast<int>(qFromBigEndian<quint32>(dump.constData() + index * 4));
    };
    const qsizetype begin = word(HeaderSize) + word(Colors) * bytesPerColor;
    const qsizetype size = qsizetype{word(BytesPerLine)} * word(Height);
    if (word(BitsPerPixel) != 32 || begin + size > dump.size())
        return {};
    return QImage(reinterpret_cast<const uchar *>(dump.constData() + begin), word(Width),
                  word(Height), word(BytesPerLine), QImage::Format_RGB32)
        .copy();
}

} // namespace

XDisplay::XDisplay()
{
    dieWithTheTest(m_server);
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s,
                               u"%1x%2x24"_s.arg(size.width()).arg(size.height()), u"-nolisten"_s,
                               u"tcp"_s, u"-noreset"_s, u"-fbdir"_s, m_folder.path()});
    if (!m_server.waitForReadyRead(patienceMilliseconds)) {
        ADD_FAILURE() << "the virtual display does not start: "
                      << m_server.errorString().toStdString();
        return;
    }
    m_name = u':' + QString::fromLatin1(m_server.readLine().trimmed());

    const QString settings = m_folder.filePath(u"rc.xml"_s);
    QFile file(settings);
    if (!file.open(QIODevice::WriteOnly) || file.write(windowManagerSettings) < 0)
        ADD_FAILURE() << "no settings for the window manager";
    file.close();
    dieWithTheTest(m_windowManager);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, m_name);
    m_windowManager.setProcessEnvironment(environment);
    m_windowManager.setStandardOutputFile(QProcess::nullDevice());
    m_windowManager.setStandardErrorFile(QProcess::nullDevice());
    m_windowManager.start(u"openbox"_s, {u"--sm-disable"_s, u"--config-file"_s, settings});
    EXPECT_TRUE(waitUntil([this] { return !xdotool({u"get_num_desktops"_s}, true).isEmpty(); }))
        << "the window manager does not start";
}

XDisplay::~XDisplay()
{
    for (QProcess *process : {&m_windowManager, &m_server}) {
        process->terminate();
        if (process->state() != QProcess::NotRunning &&
            !process->waitForFinished(patienceMilliseconds))
            process->kill();
    }
}

void XDisplay::addTo(QProcessEnvironment &environment) const
{
    environment.insert(u"DISPLAY"_s, m_name);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.remove(u"WAYLAND_DISPLAY"_s);
}

void XDisplay::kill()
{
    m_server.kill();
    m_server.waitForFinished(patienceMilliseconds);
}

QImage XDisplay::screen() const
{
    QFile file(m_folder.filePath(u"Xvfb_screen0"_s));
    QImage image;
    if (file.open(QIODevice::ReadOnly))
        image = readWindowDump(file.readAll());
    EXPECT_FALSE(image.isNull()) << "the screen cannot be read";
    return image;
}

QString XDisplay::findWindow(const QString &titlePattern) const
{
    return xdotool({u"search"_s, u"--onlyvisible"_s, u"--name"_s, titlePattern}, true)
        .section(u'\n', 0, 0);
}

void XDisplay::moveWindow(const QString &window, const QRect &frame)
{
    xdotool(
        {u"windowsize"_s, window, QString::number(frame.width()), QString::number(frame.height())},
        true);
    xdotool({u"windowmove"_s, window, QString::number(frame.x()), QString::number(frame.y())},
            true);
}

QRect XDisplay::frameOf(const QString &window) const
{
    QRect frame;
    const QStringList lines =
        xdotool({u"getwindowgeometry"_s, u"--shell"_s, window}, true).split(u'\n');
    for (const QString &line : lines) {
        const int value = line.section(u'=', 1).toInt();
        if (line.startsWith(u"X="_s))
            frame.moveLeft(value);
        else if (line.startsWith(u"Y="_s))
            frame.moveTop(value);
        else if (line.startsWith(u"WIDTH="_s))
            frame.setWidth(value);
        else if (line.startsWith(u"HEIGHT="_s))
            frame.setHeight(value);
    }
    return frame;
}

QString XDisplay::activeWindow() const
{
    return xdotool({u"getactivewindow"_s}, true);
}

void XDisplay::minimize(const QString &window)
{
    xdotool({u"windowminimize"_s, window});
}

void XDisplay::moveTo(QPoint point)
{
    xdotool({u"mousemove"_s, QString::number(point.x()), QString::number(point.y())});
}

void XDisplay::press()
{
    xdotool({u"mousedown"_s, u"1"_s});
}

void XDisplay::release()
{
    xdotool({u"mouseup"_s, u"1"_s});
}

void XDisplay::click(QPoint point, int times)
{
    xdotool({u"mousemove"_s, QString::number(point.x()), QString::number(point.y()), u"click"_s,
             u"--repeat"_s, QString::number(times), u"--delay"_s, u"40"_s, u"1"_s});
}

void XDisplay::wheel(QPoint point, int notches)
{
    const QString up = u"4"_s;
    const QString down = u"5"_s;
    moveTo(point);
    xdotool({u"click"_s, u"--repeat"_s, QString::number(std::abs(notches)), u"--delay"_s, u"40"_s,
             notches > 0 ? up : down});
}

void XDisplay::key(const QString &name, int times)
{
    xdotool({u"key"_s, u"--repeat"_s, QString::number(times), u"--repeat-delay"_s, u"30"_s, name});
}

void XDisplay::keyDown(const QString &name)
{
    xdotool({u"keydown"_s, name});
}

void XDisplay::keyUp(const QString &name)
{
    xdotool({u"keyup"_s, name});
}

void XDisplay::type(const QString &text)
{
    xdotool({u"type"_s, u"--delay"_s, u"20"_s, text});
}

QString XDisplay::xdotool(const QStringList &arguments, bool mayFail) const
{
    QProcess process;
    dieWithTheTest(process);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, m_name);
    process.setProcessEnvironment(environment);
    process.start(u"xdotool"_s, arguments);
    const bool done = process.waitForFinished(patienceMilliseconds) &&
                      process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    EXPECT_TRUE(done || mayFail) << "xdotool " << arguments.join(u' ').toStdString() << ": "
                                 << process.readAllStandardError().toStdString();
    return done ? QString::fromUtf8(process.readAllStandardOutput()).trimmed() : QString();
}

} // namespace lyrabox::test
