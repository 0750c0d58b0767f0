// A stand-in, for tests, for the spreadsheet application and the word processor that are driven by OLE automation.
//
//   vellumo-automation-server /register FOLDER    as both of them; FOLDER has its record and its orders
//   vellumo-automation-server /unregister
//   vellumo-automation-server /run spreadsheet
//   vellumo-automation-server /run wordprocessor [DOCUMENTS]
//                                                 as one that its user has open
//   vellumo-automation-server /stop               ends all that run
//   vellumo-automation-server /count [MILLISECONDS]
//                                                 exits with the number of those that run, after waiting for none
//
// FOLDER\record.txt has a line for every call. FOLDER\orders.txt holds what calls do instead of their work:
//   fail MEMBER NUMBER DESCRIPTION       fails as the real applications do; MEMBER is the record's name of it, without
//   failcode MEMBER NUMBER DESCRIPTION   arguments, with "=" for a property that is written
//   fail create                          the application can't be made
//   vanish MEMBER                        the process ends in the middle of the call
//   busy N                               the first N calls are turned away, to be tried again later
//   answer N RESULT                      the first N calls answer that HRESULT, in hexadecimal digits

#include "Application.h"
#include "Classes.h"
#include "Registration.h"
#include "Server.h"
#include "Spreadsheet.h"
#include "Text.h"
#include "WordProcessor.h"

#include <cstdio>
#include <stdexcept>

namespace {

int Serve(const std::wstring& name, bool byUser, int documents) {
    // Applications have working folders of their own.
    wchar_t folder[MAX_PATH];
    GetSystemDirectoryW(folder, MAX_PATH);
    SetCurrentDirectoryW(folder);
    const bool isSpreadsheet = name == L"spreadsheet";
    Journal journal(RegisteredFolder(), isSpreadsheet ? L"excel" : L"word");
    const Server server = {isSpreadsheet ? SpreadsheetClass : WordProcessorClass, name, journal, [&] {
                               return isSpreadsheet ? MakeSpreadsheet(journal) : MakeWordProcessor(journal, documents);
                           }};
    return byUser ? RunByUser(server) : Embed(server);
}

int Work(const std::vector<std::wstring>& arguments) {
    const auto argument = [&](std::size_t i) { return i < arguments.size() ? arguments[i] : std::wstring(); };
    const auto number = [&](std::size_t i) { return static_cast<int>(std::wcstol(argument(i).c_str(), nullptr, 10)); };
    const std::wstring& name = argument(0);
    if (name == L"/register")
        Register(argument(1));
    else if (name == L"/unregister")
        Unregister();
    else if (name == L"/run")
        return Serve(argument(1), true, number(2));
    else if (name == L"/stop")
        return StopAll();
    else if (name == L"/count")
        return CountAfter(number(1));
    else if (argument(1) == L"-Embedding")
        return Serve(name, false, 0);
    else
        throw std::runtime_error("Unknown argument: " + Utf8(name));
    return 0;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    try {
        return Work({arguments + 1, arguments + count});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 250;
    }
}
