// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "start_watch.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

namespace {

constexpr auto patience = 20s;
constexpr int smallestWindow = 200; // points; what is smaller is a helper of the toolkit

template <typename Answer>
struct Freed
{
    explicit Freed(Answer *given) : answer(given) {}
    ~Freed() { free(answer); }
    Freed(const Freed &) = delete;
    Freed &operator=(const Freed &) = delete;
    Answer *answer;
};

/// Starts the command; what it writes to its standard error goes into the file, if one is given.
pid_t run(const std::vector<std::string> &command, const char *errors = nullptr)
{
    std::vector<char *> arguments;
    for (const std::string &argument : command)
        arguments.push_back(const_cast<char *>(argument.c_str()));
    arguments.push_back(nullptr);
    const pid_t process = fork();
    if (process != 0)
        return process;
    prctl(PR_SET_PDEATHSIG, SIGTERM); // however the benchmark ends
    if (errors)
        dup2(open(errors, O_WRONLY), STDERR_FILENO);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

/// A program that serves others, and the line it has told when it was ready.
struct Served
{
    pid_t process = -1;
    std::string told;
};

/// Starts the program with one more option, whose value is the descriptor of a pipe to tell its line into.
Served serve(std::vector<std::string> command, const std::string &descriptorOption)
{
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("there is no pipe to be had");
    command.push_back(descriptorOption);
    command.push_back(std::to_string(ends[1]));
    Served served;
    served.process = run(command, "/dev/null");
    close(ends[1]);
    pollfd ready = {ends[0], POLLIN, 0};
    for (char character = '\0'; character != '\n'; served.told += character) {
        if (poll(&ready, 1, 20000) != 1 || read(ends[0], &character, 1) != 1)
            throw std::runtime_error(command[0] + " does not start; script/setup --bench installs it");
    }
    served.told.pop_back();
    close(ends[0]);
    return served;
}

/// Processor time of a process so far, in clock ticks.
long ticksOf(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text((std::istreambuf_iterator<char>(file)), {});
    std::istringstream fields(text.substr(text.rfind(')') + 1));
    std::string skipped;
    for (int count = 0; count < 11; ++count)
        fields >> skipped;
    long user = 0;
    long system = 0;
    fields >> user >> system;
    return user + system;
}

/// Waits until the process has done nothing for a while.
void waitForRest(pid_t process)
{
    const auto deadline = Clock::now() + patience;
    long ticks = -1;
    for (int quiet = 0; quiet < 5 && Clock::now() < deadline; ++quiet) {
        std::this_thread::sleep_for(50ms);
        const long now = ticksOf(process);
        if (now != ticks)
            quiet = 0;
        ticks = now;
    }
}

double memoryOf(pid_t process)
{
    const std::string folder = "/proc/" + std::to_string(process);
    std::ifstream file(folder + "/smaps_rollup");
    double sum = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("Pss:", 0) == 0)
            sum += std::strtod(line.c_str() + 4, nullptr);
    }
    std::ifstream children(folder + "/task/" + std::to_string(process) + "/children");
    for (pid_t child = 0; children >> child;)
        sum += memoryOf(child);
    return sum;
}

} // namespace

StartWatch::StartWatch()
{
    startServer();
    startBus();
    m_connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(m_connection))
        throw std::runtime_error("the X server does not answer");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection);
}

StartWatch::~StartWatch()
{
    xcb_disconnect(m_connection);
    for (const pid_t process : {m_bus, m_server}) {
        kill(process, SIGTERM);
        waitpid(process, nullptr, 0);
    }
}

/// The server finds a free display number and tells it when it is ready.
void StartWatch::startServer()
{
    const Served server =
        serve({"Xvfb", "-screen", "0", "1400x900x24", "-noreset", "-nolisten", "tcp"}, "-displayfd");
    m_server = server.process;
    setenv("DISPLAY", (":" + server.told).c_str(), 1);
}

/// A desktop has a session bus. Without one, whatever asks for it would start a program to make it.
void StartWatch::startBus()
{
    const Served bus = serve({"dbus-daemon", "--session", "--nofork", "--nopidfile"}, "--print-address");
    m_bus = bus.process;
    setenv("DBUS_SESSION_BUS_ADDRESS", bus.told.c_str(), 1);
}

StartCost StartWatch::start(const std::vector<std::string> &command)
{
    StartCost cost;
    const auto begin = Clock::now();
    const pid_t process = run(command);
    waitForPaintedWindow();
    cost.milliseconds = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
    waitForRest(process);
    cost.kibibytes = memoryOf(process);
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    return cost;
}

void StartWatch::waitForPaintedWindow()
{
    const auto deadline = Clock::now() + patience;
    xcb_window_t window = 0;
    while (Clock::now() < deadline) {
        const Freed event(xcb_poll_for_event(m_connection));
        if (event.answer && (event.answer->response_type & 0x7f) == XCB_MAP_NOTIFY) {
            const auto *mapped = reinterpret_cast<const xcb_map_notify_event_t *>(event.answer);
            window = mapped->override_redirect ? window : mapped->window;
        }
        if (event.answer)
            continue;
        if (window != 0 && isPainted(window))
            return;
        std::this_thread::sleep_for(200us);
    }
    throw std::runtime_error("no window appeared");
}

/// The screen is black, and no window of ours is, once it is painted.
bool StartWatch::isPainted(unsigned window)
{
    const Freed geometry(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    if (!geometry.answer || geometry.answer->width < smallestWindow)
        return false;
    const auto x = int16_t(geometry.answer->width / 2);
    const auto y = int16_t(geometry.answer->height / 2);
    const Freed image(xcb_get_image_reply(
        m_connection, xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, x, y, 1, 1, ~0U),
        nullptr));
    if (!image.answer || xcb_get_image_data_length(image.answer) < 3)
        return false;
    const uint8_t *pixel = xcb_get_image_data(image.answer);
    return pixel[0] != 0 || pixel[1] != 0 || pixel[2] != 0;
}
