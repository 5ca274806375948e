#include "skin/ProfileFile.h"

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

bool PathExists(const std::wstring& path)
{
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    FindClose(search);
    return true;
}

FileHandle OpenRegularFile(const std::wstring& path)
{
    std::FILE* file = nullptr;
    return FileHandle(_wfopen_s(&file, path.c_str(), L"rb") == 0 ? file : nullptr);
}

#else

#include <QFile>
#include <QString>

#include <sys/stat.h>

namespace {

QByteArray NativePath(const std::wstring& path)
{
    return QFile::encodeName(QString::fromStdWString(path));
}

} // namespace

bool PathExists(const std::wstring& path)
{
    struct stat status;
    return stat(NativePath(path).constData(), &status) == 0;
}

FileHandle OpenRegularFile(const std::wstring& path)
{
    const QByteArray nativePath = NativePath(path);
    struct stat status;
    // Asked before opening: opening a pipe would wait for its writer.
    if (stat(nativePath.constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return nullptr;
    return FileHandle(std::fopen(nativePath.constData(), "rb"));
}

#endif
