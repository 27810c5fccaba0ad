// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "tests/support/XServer.h"

#include <QCoreApplication>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace {

// A window may go at any moment, and what is asked of it then is an error that Xlib would end the process for.
int ignoreError(::Display * /*display*/, XErrorEvent * /*error*/)
{
    return 0;
}

class Connection final {
public:
    explicit Connection(const QByteArray &name)
        : display(XOpenDisplay(name.constData()))
    {
        if (display == nullptr)
            qFatal("no connection to the display %s", name.constData());
        XSetErrorHandler(ignoreError);
    }
    ~Connection()
    {
        XSync(display, 0);
        XCloseDisplay(display);
    }
    Q_DISABLE_COPY_MOVE(Connection)

    [[nodiscard]] ::Atom atom(const char *name) const { return XInternAtom(display, name, 0); }

    [[nodiscard]] QList<unsigned long> children(::Window window) const
    {
        ::Window root = 0;
        ::Window parent = 0;
        ::Window *list = nullptr;
        unsigned int count = 0;
        if (XQueryTree(display, window, &root, &parent, &list, &count) == 0)
            return {};
        const QList<unsigned long> children(list, list + count);
        if (list != nullptr)
            XFree(list);
        return children;
    }

    [[nodiscard]] bool isVisible(::Window window) const
    {
        XWindowAttributes attributes;
        return XGetWindowAttributes(display, window, &attributes) != 0 && attributes.map_state == IsViewable;
    }

    [[nodiscard]] qint64 processOf(::Window window) const
    {
        ::Atom type = 0;
        int format = 0;
        unsigned long count = 0;
        unsigned long rest = 0;
        unsigned char *value = nullptr;
        if (XGetWindowProperty(
                display, window, atom("_NET_WM_PID"), 0, 1, 0, XA_CARDINAL, &type, &format, &count, &rest, &value)
                != 0
            || value == nullptr)
            return -1;
        const qint64 process = count == 1 ? qint64(*reinterpret_cast<unsigned long *>(value)) : -1;
        XFree(value);
        return process;
    }

    ::Display *display;
};

void sendKeys(const QByteArray &displayname, const QStringList &arguments)
{
    QProcess xdotool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(displayname));
    xdotool.setProcessEnvironment(environment);
    xdotool.start(QStringLiteral("xdotool"), arguments);
    if (!xdotool.waitForFinished() || xdotool.exitCode() != 0)
        qFatal("xdotool failed: %s", xdotool.readAllStandardError().constData());
}

} // namespace

XServer::XServer()
{
    // Without -noreset the server starts anew, and drops who has just come, whenever its last client goes.
    // Without -dumbSched its timer now and then goes on for ever, and it never seems to have come to rest.
    // The number is asked for because a server that picks one itself keeps no lock, and may lose it to another.
    static int servers = 0;
    const QString asked
        = u':' + QString::number(100 + (QCoreApplication::applicationPid() + 25000LL * servers++) % 50000);
    server.start(QStringLiteral("Xvfb"),
        {asked, QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
            QStringLiteral("1280x800x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp"),
            QStringLiteral("-noreset"), QStringLiteral("-dumbSched")});
    // It tells its number once it listens.
    while (!server.canReadLine() && server.waitForReadyRead(20000)) { }
    const QByteArray number = server.readLine().trimmed();
    if (!number.isEmpty())
        displayname = ':' + number;
}

XServer::~XServer()
{
    server.terminate();
    server.waitForFinished();
}

QList<unsigned long> XServer::stack() const
{
    const Connection connection(displayname);
    return connection.children(XDefaultRootWindow(connection.display));
}

QList<unsigned long> XServer::windowsOf(qint64 process) const
{
    const Connection connection(displayname);
    QList<unsigned long> windows;
    for (const ::Window window : connection.children(XDefaultRootWindow(connection.display))) {
        if (connection.isVisible(window) && connection.processOf(window) == process)
            windows.append(window);
    }
    return windows;
}

void XServer::focus(unsigned long window) const
{
    const Connection connection(displayname);
    XSetInputFocus(connection.display, window, RevertToParent, CurrentTime);
}

void XServer::press(const QStringList &keys) const
{
    sendKeys(displayname, QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("2")} + keys);
}

void XServer::type(const QString &text) const
{
    sendKeys(displayname, {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("2"), text});
}

void XServer::closeWindow(unsigned long window) const
{
    const Connection connection(displayname);
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = connection.atom("WM_PROTOCOLS");
    event.xclient.format = 32;
    event.xclient.data.l[0] = long(connection.atom("WM_DELETE_WINDOW"));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(connection.display, window, 0, NoEventMask, &event);
}
