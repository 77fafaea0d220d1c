#include "companions/helper/WritableMeanwhile.h"

#include <windows.h>

namespace {

DWORD attributesOf(HANDLE file)
{
    FILE_BASIC_INFO basic = {};
    return GetFileInformationByHandleEx(file, FileBasicInfo, &basic, sizeof(basic)) != 0
               ? basic.FileAttributes
               : 0;
}

bool setAttributes(HANDLE file, DWORD attributes)
{
    // Times that are 0 stay as they are, and so would attributes.
    FILE_BASIC_INFO basic = {};
    basic.FileAttributes = attributes != 0 ? attributes : DWORD{FILE_ATTRIBUTE_NORMAL};
    return SetFileInformationByHandle(file, FileBasicInfo, &basic, sizeof(basic)) != 0;
}

} // namespace

WritableMeanwhile::WritableMeanwhile(const std::wstring &path) : literal(literalPath(path))
{
    const UniqueHandle file = open();
    if (!file) {
        return;
    }
    facts = factsOf(file.get(), path);
    const DWORD before = attributesOf(file.get());
    if ((before & FILE_ATTRIBUTE_READONLY) != 0 && isReplaceable(facts) &&
        setAttributes(file.get(), before & ~DWORD{FILE_ATTRIBUTE_READONLY})) {
        attributes = before;
    }
}

WritableMeanwhile::~WritableMeanwhile()
{
    if (attributes == 0) {
        return;
    }
    const UniqueHandle file = open();
    if (file && isSameFile(factsOf(file.get()), facts)) {
        setAttributes(file.get(), attributes);
    }
}

/// What is under the path itself, never what that leads to.
UniqueHandle WritableMeanwhile::open() const
{
    return UniqueHandle(CreateFileW(literal.c_str(), FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}
