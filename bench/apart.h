/// Work in a process of its own, with its time and the memory it took. POSIX only.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

struct SOutcome
{
    bool isdone = false;
    double seconds = 0;
    double peak = 0; ///< Bytes. At least what the calling process holds, so that it should hold little.
};

/// Calls `work` in a child process, which it ends with _exit or replaces by a program; exit code 0 is success.
template <class TWork> SOutcome RunApart(TWork work)
{
    std::fflush(nullptr);
    SOutcome outcome;
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0)
    {
        work();
        _exit(1);
    }
    int status = 0;
    rusage usage = {};
    if (child < 0 || wait4(child, &status, 0, &usage) != child)
        return outcome;
    outcome.isdone = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    outcome.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    outcome.peak = static_cast<double>(usage.ru_maxrss) * 1024;
    return outcome;
}
