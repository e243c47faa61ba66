#pragma once

#include "platform/accessibility.h"
#include "platform/windows/reader_calls.h"
#include "platform/windows/window_table.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace platform {

// The system's own interfaces have no destructor to be virtual.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// A window, or a list in it, as the system hands it to readers. It keeps nothing of what it tells:
/// it asks the window each time, and answers nothing once that has ended. The children of a window
/// are the things that show, numbered from 1, and behind them its push buttons, which the system
/// tells of; those of a list are its rows. The reader that asked for it ends it.
class AccessibleObject final : public IAccessible {
  public:
    /// The window itself.
    static constexpr std::int32_t Whole = -1;

    AccessibleObject(HWND window, std::int32_t thing) : window_(window), thing_(thing) {}
    AccessibleObject(const AccessibleObject&) = delete;
    AccessibleObject& operator=(const AccessibleObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // Readers call the functions themselves and need none of these.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID none, LPOLESTR* names, UINT count, LCID language,
                                            DISPID* numbers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID none, LCID language, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrong) override;

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override;
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override;
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override;
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override;
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override;

  private:
    ~AccessibleObject() = default;

    [[nodiscard]] bool isWhole() const { return thing_ == Whole; }
    [[nodiscard]] std::vector<HWND> buttons() const;
    [[nodiscard]] std::optional<AccessiblePlace> placeOf(const VARIANT& child) const;
    [[nodiscard]] std::optional<AccessibleThing> thingOf(const VARIANT& child) const;
    [[nodiscard]] bool isSelf(const VARIANT& child) const;
    [[nodiscard]] LONG stateOf(const AccessibleThing& thing) const;

    HWND window_;
    std::int32_t thing_;
    ULONG references_ = 1;
};

#pragma GCC diagnostic pop

/// What a window tells; null once it has ended, and for one that tells nothing.
const AccessibleWindow* askWindow(HWND window);

} // namespace platform
