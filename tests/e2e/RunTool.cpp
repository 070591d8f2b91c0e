#include "RunTool.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>

namespace e2e {

ToolResult RunTool(const std::string& program, const std::vector<std::string>& args,
                   int timeoutSeconds)
{
    ToolResult result;
    int outPipe[2];
    int errPipe[2];
    if (pipe2(outPipe, O_CLOEXEC) != 0 || pipe2(errPipe, O_CLOEXEC) != 0) {
        return result;
    }
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& a : args) {
        argv.push_back(const_cast<char*>(a.c_str()));
    }
    argv.push_back(nullptr);

    const pid_t pid = fork();
    if (pid == 0) {
        dup2(outPipe[1], STDOUT_FILENO);
        dup2(errPipe[1], STDERR_FILENO);
        execv(program.c_str(), argv.data());
        _exit(127);
    }
    close(outPipe[1]);
    close(errPipe[1]);

    auto lastOutput = std::chrono::steady_clock::now();
    const auto deadline = lastOutput + std::chrono::seconds(timeoutSeconds);
    pollfd fds[2] = {{outPipe[0], POLLIN, 0}, {errPipe[0], POLLIN, 0}};
    std::string* sinks[2] = {&result.out, &result.err};
    int open = 2;
    while (open > 0) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                              deadline - std::chrono::steady_clock::now())
                              .count();
        if (left <= 0) {
            result.timedOut = true;
            kill(pid, SIGKILL);
            break;
        }
        if (poll(fds, 2, static_cast<int>(left)) < 0) {
            break;
        }
        for (int i = 0; i < 2; ++i) {
            if (fds[i].fd >= 0 && (fds[i].revents & (POLLIN | POLLHUP))) {
                char buffer[4096];
                const ssize_t n = read(fds[i].fd, buffer, sizeof(buffer));
                if (n > 0) {
                    sinks[i]->append(buffer, static_cast<size_t>(n));
                    lastOutput = std::chrono::steady_clock::now();
                } else {
                    close(fds[i].fd);
                    fds[i].fd = -1;
                    --open;
                }
            }
        }
    }
    for (pollfd& p : fds) {
        if (p.fd >= 0) {
            close(p.fd);
        }
    }
    int status = 0;
    waitpid(pid, &status, 0);
    result.afterLastOutput = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - lastOutput);
    if (WIFEXITED(status)) {
        result.exitStatus = WEXITSTATUS(status);
    }
    return result;
}

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        lines.push_back(line);
    }
    return lines;
}

nlohmann::json ShippedProfile(const std::string& name)
{
    std::ifstream in(std::string(NETSRV_SOURCE_DIR) + "/tools/modemsim/profiles/" + name +
                     ".json");
    return nlohmann::json::parse(in);
}

bool HasFields(const nlohmann::json& actual, const nlohmann::json& expected)
{
    nlohmann::json patched = actual;
    patched.merge_patch(expected);
    return patched == actual;
}

}  // namespace e2e
