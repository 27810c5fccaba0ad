// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

// A session manager of the X Window System for tests. Its first line of output is the address that programs find it by
// ($SESSION_MANAGER). It does as it is told by the lines of its input: "save" tells its programs that the session is
// about to end and that they may save, "cancel" that it stays after all, "end" that it ends. "saved" is its answer when
// a program has done so. It ends with its input.

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <span>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

std::vector<SmsConn> programs;
bool issaving = false;

Bool letIn(char * /*host*/)
{
    return True;
}

void say(const std::string &line)
{
    std::puts(line.c_str());
    std::fflush(stdout);
}

Status begin(SmsConn program, SmPointer /*data*/, char * /*previousname*/)
{
    SmsRegisterClientReply(program, SmsGenerateClientID(program));
    SmsSaveYourself(program, SmSaveLocal, False, SmInteractStyleNone, False); // as every new one is asked
    return True;
}

void saved(SmsConn program, SmPointer /*data*/, Bool /*success*/)
{
    if (issaving)
        say("saved");
    else
        SmsSaveComplete(program);
}

void end(SmsConn program, SmPointer /*data*/, int count, char **reasons)
{
    SmFreeReasons(count, reasons);
    std::erase(programs, program);
    IceConn connection = SmsGetIceConnection(program);
    SmsCleanUp(program);
    IceSetShutdownNegotiation(connection, False);
    IceCloseConnection(connection);
}

void setProperties(SmsConn /*program*/, SmPointer /*data*/, int count, SmProp **properties)
{
    for (SmProp *property : std::span(properties, std::size_t(count)))
        SmFreeProperty(property);
    std::free(properties);
}

Status welcome(SmsConn program, SmPointer /*data*/, unsigned long *mask, SmsCallbacks *answers, char ** /*reason*/)
{
    programs.push_back(program);
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask
        | SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask
        | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask
        | SmsGetPropertiesProcMask;
    answers->register_client.callback = begin;
    answers->interact_request.callback = [](SmsConn, SmPointer, int) {};
    answers->interact_done.callback = [](SmsConn, SmPointer, Bool) {};
    answers->save_yourself_request.callback = [](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {};
    answers->save_yourself_phase2_request.callback = [](SmsConn, SmPointer) {};
    answers->save_yourself_done.callback = saved;
    answers->close_connection.callback = end;
    answers->set_properties.callback = setProperties;
    answers->delete_properties.callback = [](SmsConn, SmPointer, int, char **) {};
    answers->get_properties.callback = [](SmsConn, SmPointer) {};
    return True;
}

void command(const std::string &line)
{
    issaving = line == "save";
    for (SmsConn program : programs) {
        if (issaving)
            SmsSaveYourself(program, SmSaveBoth, True, SmInteractStyleNone, False);
        else if (line == "cancel")
            SmsShutdownCancelled(program);
        else if (line == "end")
            SmsDie(program);
    }
}

} // namespace

int main()
{
    std::array<char, 200> error = {};
    std::array<char, 20> vendor = {"Provender"};
    std::array<char, 20> release = {"1"};
    int count = 0;
    IceListenObj *listeners = nullptr;
    if (SmsInitialize(vendor.data(), release.data(), welcome, nullptr, letIn, int(error.size()), error.data()) == 0
        || IceListenForConnections(&count, &listeners, int(error.size()), error.data()) == 0) {
        std::fprintf(stderr, "%s\n", error.data());
        return 1;
    }
    std::vector<IceConn> connections;
    const std::span heard(listeners, std::size_t(count));
    for (IceListenObj listener : heard)
        IceSetHostBasedAuthProc(listener, letIn);
    say(IceComposeNetworkIdList(count, listeners));

    for (;;) {
        std::vector<pollfd> sources = {{STDIN_FILENO, POLLIN, 0}};
        for (IceListenObj listener : heard)
            sources.push_back({IceGetListenConnectionNumber(listener), POLLIN, 0});
        for (IceConn connection : connections)
            sources.push_back({IceConnectionNumber(connection), POLLIN, 0});
        if (::poll(sources.data(), sources.size(), -1) < 0)
            return 1;
        const std::vector<IceConn> before = connections;
        for (std::size_t source = 0; source < sources.size(); ++source) {
            if (sources[source].revents == 0)
                continue;
            if (source == 0) {
                std::array<char, 100> line = {};
                const ssize_t length = ::read(STDIN_FILENO, line.data(), line.size());
                if (length <= 0)
                    return 0;
                command(std::string(line.data(), std::size_t(length) - 1));
            } else if (source <= heard.size()) {
                IceAcceptStatus status = IceAcceptSuccess;
                if (IceConn connection = IceAcceptConnection(heard[source - 1], &status); connection != nullptr)
                    connections.push_back(connection);
            } else {
                IceConn connection = before[source - 1 - heard.size()];
                if (IceProcessMessages(connection, nullptr, nullptr) != IceProcessMessagesSuccess)
                    std::erase(connections, connection);
            }
        }
    }
}
