#include "support/program/VirtualDisplay.h"

#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

constexpr int patienceMilliseconds = 20'000;

const QByteArray windowManagerSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <theme><keepBorder>no</keepBorder></theme>
  <desktops><number>1</number></desktops>
  <applications><application class="*"><decor>no</decor></application></applications>
</openbox_config>
)";

/// The picture in the file that the display keeps its pixels in, which is an X window dump: a
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

VirtualDisplay::VirtualDisplay()
{
    dieWithTheTest(m_server);
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(u"Xvfb"_s,
                   {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x860x24"_s, u"-nolisten"_s,
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

VirtualDisplay::~VirtualDisplay()
{
    for (QProcess *process : {&m_windowManager, &m_server}) {
        process->terminate();
        if (process->state() != QProcess::NotRunning &&
            !process->waitForFinished(patienceMilliseconds))
            process->kill();
    }
}

void VirtualDisplay::kill()
{
    m_server.kill();
    m_server.waitForFinished(patienceMilliseconds);
}

QImage VirtualDisplay::screen() const
{
    QFile file(m_folder.filePath(u"Xvfb_screen0"_s));
    QImage image;
    if (file.open(QIODevice::ReadOnly))
        image = readWindowDump(file.readAll());
    EXPECT_FALSE(image.isNull()) << "the screen cannot be read";
    return image;
}

QString VirtualDisplay::waitForWindow(const QString &titlePattern)
{
    QString window;
    EXPECT_TRUE(waitUntil([&] {
        window = xdotool({u"search"_s, u"--onlyvisible"_s, u"--name"_s, titlePattern}, true)
                     .section(u'\n', 0, 0);
        return !window.isEmpty();
    })) << "no window "
        << titlePattern.toStdString();
    return window;
}

bool VirtualDisplay::hasWindow(const QString &titlePattern) const
{
    return !xdotool({u"search"_s, u"--onlyvisible"_s, u"--name"_s, titlePattern}, true).isEmpty();
}

void VirtualDisplay::place(const QString &window, const QRect &frame)
{
    // The window manager may still be busy with where it wants to have a new window.
    EXPECT_TRUE(waitUntil([&] {
        xdotool({u"windowsize"_s, window, QString::number(frame.width()),
                 QString::number(frame.height())},
                true);
        xdotool({u"windowmove"_s, window, QString::number(frame.x()), QString::number(frame.y())},
                true);
        return waitUntil([&] { return frameOf(window) == frame; }, 0.5);
    })) << "the window does not go where it shall";
}

QRect VirtualDisplay::frameOf(const QString &window) const
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

QString VirtualDisplay::activeWindow() const
{
    return xdotool({u"getactivewindow"_s}, true);
}

void VirtualDisplay::minimize(const QString &window)
{
    xdotool({u"windowminimize"_s, window});
}

void VirtualDisplay::moveTo(QPoint point)
{
    xdotool({u"mousemove"_s, QString::number(point.x()), QString::number(point.y())});
}

void VirtualDisplay::press()
{
    xdotool({u"mousedown"_s, u"1"_s});
}

void VirtualDisplay::release()
{
    xdotool({u"mouseup"_s, u"1"_s});
}

void VirtualDisplay::click(QPoint point, int times)
{
    xdotool({u"mousemove"_s, QString::number(point.x()), QString::number(point.y()), u"click"_s,
             u"--repeat"_s, QString::number(times), u"--delay"_s, u"40"_s, u"1"_s});
}

void VirtualDisplay::wheel(QPoint point, int notches)
{
    const QString up = u"4"_s;
    const QString down = u"5"_s;
    moveTo(point);
    xdotool({u"click"_s, u"--repeat"_s, QString::number(std::abs(notches)), u"--delay"_s, u"40"_s,
             notches > 0 ? up : down});
}

void VirtualDisplay::drag(QPoint from, QPoint to)
{
    const QPoint middle = (from + to) / 2;
    moveTo(from);
    press();
    moveTo(middle);
    moveTo(to);
    release();
}

void VirtualDisplay::key(const QString &name, int times)
{
    xdotool({u"key"_s, u"--repeat"_s, QString::number(times), u"--repeat-delay"_s, u"30"_s, name});
}

void VirtualDisplay::keyDown(const QString &name)
{
    xdotool({u"keydown"_s, name});
}

void VirtualDisplay::keyUp(const QString &name)
{
    xdotool({u"keyup"_s, name});
}

void VirtualDisplay::type(const QString &text)
{
    xdotool({u"type"_s, u"--delay"_s, u"20"_s, text});
}

QString VirtualDisplay::xdotool(const QStringList &arguments, bool mayFail) const
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
