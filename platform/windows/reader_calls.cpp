#include "platform/windows/reader_calls.h"

#include "platform/windows/system_library.h"

namespace platform {

const ReaderCalls* readerCalls() {
    static ReaderCalls calls = {};
    static const bool all = [] {
        const HMODULE readers = loadSystemLibrary(L"oleacc.dll");
        const HMODULE texts = loadSystemLibrary(L"oleaut32.dll");
        return findCall(calls.resultOf, readers, "LresultFromObject") &&
               findCall(calls.createStandard, readers, "CreateStdAccessibleObject") &&
               findCall(calls.objectOf, readers, "AccessibleObjectFromWindow") &&
               findCall(calls.allocate, texts, "SysAllocStringLen");
    }();
    return all ? &calls : nullptr;
}

} // namespace platform
