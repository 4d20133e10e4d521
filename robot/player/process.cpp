// process.cpp: starting and stopping programs.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "process.h"
#include "robot.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

static constexpr int PRIVATE = 0600;
static constexpr int NOT_STARTED = 127;
static constexpr std::chrono::milliseconds STOP_PATIENCE{2000}, POLL{10};

pid_t process_start(const std::vector<std::string> &words, const std::string &output, const std::string &folder) {
    std::vector<char *> arguments;
    for (const std::string &word : words)
        arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t id = fork();
    robot_expect(id >= 0, "a process can be started");
    if (id > 0)
        return id;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int out = open(output.c_str(), O_WRONLY | O_CREAT | O_APPEND, PRIVATE);
    dup2(out, STDOUT_FILENO);
    dup2(out, STDERR_FILENO);
    if (chdir(folder.c_str()) == 0)
        execvp(arguments[0], arguments.data());
    _exit(NOT_STARTED);
}

void process_stop(pid_t id) {
    kill(id, SIGTERM);
    for (auto waited = POLL; waited < STOP_PATIENCE; waited += POLL) {
        if (waitpid(id, nullptr, WNOHANG) != 0)
            return;
        std::this_thread::sleep_for(POLL);
    }
    kill(id, SIGKILL);
    waitpid(id, nullptr, 0);
}
