#include "cli/options.h"
#include "cli/scan.h"

int main(int argc, char** argv)
{
    const tessaview::ParsedOptions parsed = tessaview::parseOptions(argc, argv);
    if (!parsed.options)
        return parsed.exitStatus;
    return tessaview::scan(*parsed.options);
}
