// A display that nobody sees, for tests on Linux: the program's windows stand on it while it lives.
#pragma once

#include <csignal>
#include <cstdlib>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

// Chooses a display number that is free and names it in the environment.
// A key that a busy machine holds down for long doesn't repeat there (-r).
class VirtualDisplay {
public:
    // `size` is that of the screen: its width, height and depth.
    explicit VirtualDisplay(const char* size = "800x600x24")
    {
        int ends[2] = {};
        if (pipe(ends) != 0)
            return;
        fProcess = fork();
        if (fProcess == 0) {
            prctl(PR_SET_PDEATHSIG, SIGTERM); // however the test ends
            close(ends[0]);
            const std::string descriptor = std::to_string(ends[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", size,
                   "-nolisten", "tcp", "-noreset", "-r", nullptr);
            _exit(127);
        }
        close(ends[1]);
        std::string number;
        for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';)
            number += c;
        close(ends[0]);
        fIsThere = !number.empty();
        setenv("DISPLAY", (":" + number).c_str(), 1);
    }
    ~VirtualDisplay() { End(); }
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    bool IsThere() const { return fIsThere; }
    pid_t Process() const { return fProcess; }

    void End()
    {
        if (fProcess <= 0)
            return;
        kill(fProcess, SIGTERM);
        waitpid(fProcess, nullptr, 0);
        fProcess = 0;
    }

private:
    pid_t fProcess = 0;
    bool fIsThere = false;
};
