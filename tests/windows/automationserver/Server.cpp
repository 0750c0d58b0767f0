#include "Server.h"

#include "Application.h"

#include <vector>

namespace {

const wchar_t* const WindowClass = L"VellumoAutomationServer";
/// How long a process that COM has started waits to be asked for its application.
constexpr UINT UnusedTimeout = 60000;
constexpr UINT FailedTimeout = 100;
constexpr int CloseTimeout = 3000;

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // Stopped or never asked for: references, if there are any, are gone with the process.
    if (message == WM_CLOSE || message == WM_TIMER)
        ExitProcess(0);
    return DefWindowProcW(window, message, wParam, lParam);
}

/// The window by which processes are found, counted and stopped.
HWND MakeWindow() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = WindowClass;
    RegisterClassW(&windowClass);
    return CreateWindowExW(0, WindowClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
}

bool IsWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

std::vector<HWND> Windows() {
    std::vector<HWND> windows;
    HWND window = nullptr;
    while ((window = FindWindowExW(HWND_MESSAGE, window, WindowClass, nullptr)) != nullptr)
        windows.push_back(window);
    return windows;
}

/// Turns calls of members away for as long as the orders want.
class BusyFilter : public IMessageFilter {
  public:
    explicit BusyFilter(Journal& journal) : journal_(journal) {}
    virtual ~BusyFilter() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IMessageFilter;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // It lives as long as the process.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO info) override {
        const bool isMember = info && info->iid == IID_IDispatch;
        if (!isMember || turnedAway_ >= journal_.BusyCalls())
            return SERVERCALL_ISHANDLED;
        ++turnedAway_;
        journal_.Note(L"busy");
        // Wine goes on with a call that is to be tried again; without a filter of its own, a client sees no difference.
        return IsWine() ? SERVERCALL_REJECTED : SERVERCALL_RETRYLATER;
    }
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK, DWORD, DWORD) override { return DWORD(-1); }
    DWORD STDMETHODCALLTYPE MessagePending(HTASK, DWORD, DWORD) override { return PENDINGMSG_WAITDEFPROCESS; }

  private:
    Journal& journal_;
    int turnedAway_ = 0;
};

class Factory : public IClassFactory {
  public:
    Factory(const Server& server, HWND window) : server_(server), window_(window) {}
    virtual ~Factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // It lives as long as the process.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        if (server_.TheJournal.OrderFor(L"create").What != Order::Kind::Work) {
            server_.TheJournal.Note(L"create ! failed");
            // It goes once its client has the answer, without the usual farewell to COM, at which Wine's crashes here.
            SetTimer(window_, 1, FailedTimeout, nullptr);
            return E_FAIL;
        }
        KillTimer(window_, 1);
        server_.TheJournal.Note(L"create");
        Application* application = server_.Make();
        application->Announce();
        const HRESULT result = application->QueryInterface(iid, object);
        application->Release();
        return result;
    }

  private:
    const Server& server_;
    HWND window_;
};

int Loop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

/// COM for the time of the work in it.
int InApartment(const Server& server, const std::function<int(HWND window)>& work) {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return 1;
    BusyFilter filter(server.TheJournal);
    CoRegisterMessageFilter(&filter, nullptr);
    const int exitCode = work(MakeWindow());
    CoRegisterMessageFilter(nullptr, nullptr);
    CoUninitialize();
    return exitCode;
}

} // namespace

int Embed(const Server& server) {
    return InApartment(server, [&](HWND window) {
        SetTimer(window, 1, UnusedTimeout, nullptr);
        Factory factory(server, window);
        DWORD cookie = 0;
        if (FAILED(CoRegisterClassObject(server.Clsid, &factory, CLSCTX_LOCAL_SERVER, REGCLS_SINGLEUSE, &cookie)))
            return 1;
        const int exitCode = Loop();
        CoRevokeClassObject(cookie);
        return exitCode;
    });
}

int RunByUser(const Server& server) {
    return InApartment(server, [&](HWND) {
        Application* application = server.Make();
        const bool announced = application->Announce();
        application->OpenByUser();
        server.TheJournal.Note(announced ? L"run" : L"run ! can't be found by others");
        application->Release();
        return Loop();
    });
}

int StopAll() {
    for (const HWND window : Windows())
        PostMessageW(window, WM_CLOSE, 0, 0);
    CountAfter(CloseTimeout);
    // Whoever is in the middle of a call that nobody waits for any longer doesn't close.
    for (const HWND window : Windows()) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        if (const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, id)) {
            TerminateProcess(process, 1);
            CloseHandle(process);
        }
    }
    return CountAfter(CloseTimeout);
}

int CountAfter(int milliseconds) {
    constexpr int step = 20;
    for (int waited = 0; waited < milliseconds && !Windows().empty(); waited += step)
        Sleep(step);
    return static_cast<int>(Windows().size());
}
