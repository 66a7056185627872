// The program as it is, but that it says when its first window has been painted and ends.
#include "first_paint.h"

#include "app/program.h"

namespace {

void watch() {
    static vandrel::bench::FirstPaint painted;
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)

int main(int argc, char** argv) {
    return vandrel::runProgram(argc, argv);
}
