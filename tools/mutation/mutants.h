#pragma once

#include <cstdio>
#include <cstdlib>
#include <set>

/// Whether this process runs a mutant: the one whose number is in the environment variable CORVANTA_MUTANT. The numbers
/// of all that are asked for are added to the file that CORVANTA_MUTANTS_REACHED names, if it is set.
inline bool mutant(int number)
{
    static const int active = [] {
        const char *value = std::getenv("CORVANTA_MUTANT");
        return value ? std::atoi(value) : 0;
    }();
    static const char *reached = std::getenv("CORVANTA_MUTANTS_REACHED");
    if (reached) {
        // Never destroyed: other static objects may ask when the process ends.
        static std::set<int> *seen = new std::set<int>;
        if (seen->insert(number).second) {
            if (std::FILE *file = std::fopen(reached, "a")) {
                std::fprintf(file, "%d\n", number);
                std::fclose(file);
            }
        }
    }
    return number == active;
}
