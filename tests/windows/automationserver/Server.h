#pragma once

#include "Journal.h"

#include <windows.h>

#include <functional>

class Application;

/// One process of the server.
struct Server {
    CLSID Clsid;
    /// What /run and the registry call it.
    std::wstring Name;
    Journal& TheJournal;
    /// Makes the application, with one reference.
    std::function<Application*()> Make;
};

/// Started by COM: hands out one application and ends with it. The process's exit code.
int Embed(const Server& server);
/// Started by hand: an application that its user has open already, until it quits.
int RunByUser(const Server& server);

/// Ends every process of the server at once, whatever still uses it; waits for that. How many still run is answered.
int StopAll();
/// How many run, after waiting for that many milliseconds at most that none does.
int CountAfter(int milliseconds);
