#include "base/stop.h"

#include <cstdio>
#include <cstdlib>

namespace zeigewerk {

void stopProgram(const char *what)
{
    std::fprintf(stderr, "zeigewerk: internal error: %s\n", what);
    std::abort();
}

} // namespace zeigewerk
