#include "tests/soak/FileDrag_win.h"

#include "tests/soak/Input_win.h"

#include <QDir>

#include <atomic>
#include <thread>

#include <windows.h>

#include <ole2.h>
#include <shlobj.h>

namespace {

constexpr int sourceSize = 40;

// Interfaces of COM have no virtual destructor: they are not deleted but released.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Drops when it is told to. Lives on the stack, so it counts no references.
class DropSource final : public IDropSource {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void **object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropSource);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL /*escape*/, DWORD /*keys*/) override
    {
        return drop ? DRAGDROP_S_DROP : S_OK;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD /*effect*/) override { return DRAGDROP_S_USEDEFAULTCURSORS; }

    std::atomic<bool> drop{false};
};

#pragma GCC diagnostic pop

/// What Explorer would drag for a file; the caller releases it. nullptr when there is no such file.
IDataObject *dataOf(const QString &file)
{
    const QString native = QDir::toNativeSeparators(file);
    PIDLIST_ABSOLUTE path = nullptr;
    if (FAILED(SHParseDisplayName(reinterpret_cast<const wchar_t *>(native.utf16()), nullptr, &path, 0,
                                  nullptr))) {
        return nullptr;
    }
    IShellFolder *folder = nullptr;
    PCUITEMID_CHILD item = nullptr;
    void *data = nullptr;
    if (SUCCEEDED(SHBindToParent(path, IID_IShellFolder, reinterpret_cast<void **>(&folder), &item))) {
        folder->GetUIObjectOf(nullptr, 1, &item, IID_IDataObject, nullptr, &data);
        folder->Release();
    }
    CoTaskMemFree(path);
    return static_cast<IDataObject *>(data);
}

void dispatchMessages()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        DispatchMessageW(&message);
    }
}

} // namespace

bool dragFile(const QString &file, QPoint target)
{
    constexpr DWORD step = 60; // ms
    OleInitialize(nullptr);
    bool taken = false;
    if (IDataObject *data = dataOf(file)) {
        const HWND window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, L"STATIC", L"Drag source",
                                            WS_POPUP | WS_VISIBLE, 0, 0, sourceSize, sourceSize, nullptr,
                                            nullptr, GetModuleHandleW(nullptr), nullptr);
        SetForegroundWindow(window);
        dispatchMessages();
        moveMouse({sourceSize / 2, sourceSize / 2});
        pressButton(MouseButton::Left);
        dispatchMessages();

        DropSource source;
        std::atomic<bool> ended{false};
        std::thread hand([&] {
            for (const QPoint &position : {target - QPoint(9, 9), target - QPoint(2, 2), target, target}) {
                Sleep(step);
                moveMouse(position);
            }
            source.drop = true;
            // Until it is noticed: on a busy machine the drag may only just begin, and its window may have
            // lost the mouse. A key that is released makes the drag ask the source as well.
            while (!ended) {
                releaseButton(MouseButton::Left);
                PostMessageW(window, WM_KEYUP, VK_SHIFT, 0);
                Sleep(step);
            }
        });
        DWORD effect = DROPEFFECT_NONE;
        taken = DoDragDrop(data, &source, DROPEFFECT_COPY | DROPEFFECT_MOVE, &effect) == DRAGDROP_S_DROP &&
                effect != DROPEFFECT_NONE;
        ended = true;
        hand.join();
        DestroyWindow(window);
        dispatchMessages();
        data->Release();
    }
    OleUninitialize();
    return taken;
}
