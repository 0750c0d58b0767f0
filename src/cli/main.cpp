#include "cli/Tool.h"
#include "platform/StandardStreams.h"
#include "platform/SystemPorts.h"

#include <clocale>

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    const StandardStreams streams = OpenStandardStreams();
    if (!streams.In || !streams.Out || !streams.Err)
        return Unusable;

    const SystemClock clock;
    const QString folder = ProgramFolderOf(argc > 0 ? argv[0] : "");
    Console console{*streams.In, *streams.Out, *streams.Err, streams.ErrIsTerminal, clock, {}, folder};
    PeekSettings(console.UserSettings, *MakeUserSettingsStore(), {folder, folder});
    return RunTool(CommandLineArguments(argc, argv), console);
}
