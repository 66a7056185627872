#include "app/program.h"

int main(int argc, char** argv) {
    return vandrel::runProgram(argc, argv);
}
