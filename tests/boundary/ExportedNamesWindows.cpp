#include "ExportedNames.h"

#include <QDir>

#include <windows.h>

namespace {

/// What stands at that distance from the start of a loaded module.
template <class T>
const T* At(const BYTE* module, DWORD distance)
{
    return reinterpret_cast<const T*>(module + distance);
}

const IMAGE_EXPORT_DIRECTORY* ExportsOf(const BYTE* module)
{
    const auto* const dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* const headers = At<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    return directory.Size == 0 ? nullptr
                               : At<IMAGE_EXPORT_DIRECTORY>(module, directory.VirtualAddress);
}

} // namespace

QStringList ExportedNames(const QString& library, QString& error)
{
    const std::wstring path = QDir::toNativeSeparators(library).toStdWString();
    const HMODULE handle = LoadLibraryExW(path.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
    if (!handle) {
        error = QStringLiteral("%1: error %2").arg(library).arg(GetLastError());
        return {};
    }
    const auto* const module = reinterpret_cast<const BYTE*>(handle);
    QStringList names;
    const IMAGE_EXPORT_DIRECTORY* const exports = ExportsOf(module);
    if (exports && exports->NumberOfNames == exports->NumberOfFunctions) {
        const DWORD* const places = At<DWORD>(module, exports->AddressOfNames);
        for (DWORD i = 0; i < exports->NumberOfNames; ++i)
            names << QString::fromLatin1(At<char>(module, places[i]));
    } else {
        error = library + QStringLiteral(" exports nothing, or something without a name");
    }
    FreeLibrary(handle);
    return names;
}
