#include "command_line.h"

int main(int count, char** arguments)
{
    return Host::RunLumohost({arguments + (count > 0 ? 1 : 0), arguments + count});
}
