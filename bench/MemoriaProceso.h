#pragma once
// Figures the benchmarks read from the running process.

#include <fstream>
#include <string>

// A memory figure of /proc/self/status in KB ("VmRSS:", "VmHWM:"), or -1.
inline long MemoriaKb(const char* campo) {
    std::ifstream f("/proc/self/status");
    std::string linea;
    while (std::getline(f, linea))
        if (linea.rfind(campo, 0) == 0)
            return std::stol(linea.substr(std::string(campo).size()));
    return -1;
}
