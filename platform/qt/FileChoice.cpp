#include "platform/qt/FileChoice.h"

#include "platform/qt/Window.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

// The same structure where a pointer has 32 bits. Programs that state it mean the published members.
constexpr DWORD narrowRecordSize = 76;
constexpr qsizetype mostFilters = 256;

QString slashed(LPCWSTR path) { return textFrom(path).replace(u'\\', u'/'); }

QString next(LPCWSTR& text) {
    QString part = textFrom(text);
    text += part.size() + 1;
    return part;
}

QList<FileFilter> filtersOf(LPCWSTR pairs) {
    QList<FileFilter> filters;
    while (pairs != nullptr && *pairs != 0 && filters.size() < mostFilters) {
        QString label = next(pairs);
        filters.append({label, next(pairs).split(u';', Qt::SkipEmptyParts)});
    }
    return filters;
}

bool hasExtension(const QString& path) { return !QFileInfo(path).suffix().isEmpty(); }

} // namespace

FileChoice::FileChoice(const OPENFILENAMEW& record)
    : flags(record.Flags),
      title(textFrom(record.lpstrTitle)),
      folder(slashed(record.lpstrInitialDir)),
      extension(textFrom(record.lpstrDefExt)),
      filters(filtersOf(record.lpstrFilter)) {
    QFileInfo given(slashed(record.lpstrFile));
    name = given.fileName();
    if (given.filePath().contains(u'/')) folder = given.path();
    if (record.nFilterIndex > 0 && record.nFilterIndex <= static_cast<DWORD>(filters.size()))
        filter = static_cast<int>(record.nFilterIndex) - 1;
}

// A file that has the very name is meant before one with the extension.
QString FileChoice::completed(const QString& path) const {
    if (extension.isEmpty() || hasExtension(path)) return path;
    if (wants(OFN_FILEMUSTEXIST) && QFileInfo::exists(path)) return path;
    return path + u'.' + extension;
}

DWORD giveBack(const FileChoice& choice, OPENFILENAMEW& record) {
    QString path = QString(choice.path).replace(u'/', u'\\');
    auto needed = static_cast<DWORD>(path.size()) + 1;
    if (needed > record.nMaxFile) {
        record.lpstrFile[0] = static_cast<WCHAR>(std::min<DWORD>(needed, 0xFFFF));
        return FNERR_BUFFERTOOSMALL;
    }
    copyText(path, record.nMaxFile, reinterpret_cast<LPARAM>(record.lpstrFile));
    qsizetype name = path.lastIndexOf(u'\\') + 1;
    qsizetype extension = path.indexOf(u'.', name) < 0 ? 0 : path.lastIndexOf(u'.') + 1;
    record.nFileOffset = static_cast<WORD>(name);
    record.nFileExtension = static_cast<WORD>(extension);
    copyText(path.mid(name), record.nMaxFileTitle, reinterpret_cast<LPARAM>(record.lpstrFileTitle));
    if (!choice.filters.isEmpty()) record.nFilterIndex = static_cast<DWORD>(choice.filter) + 1;
    record.Flags &= ~(OFN_READONLY | OFN_EXTENSIONDIFFERENT);
    QString chosen = extension == 0 ? QString() : path.mid(extension);
    if (!choice.extension.isEmpty() && chosen.compare(choice.extension, Qt::CaseInsensitive) != 0)
        record.Flags |= OFN_EXTENSIONDIFFERENT;
    return 0;
}

DWORD faultOf(const OPENFILENAMEW* record) {
    if (record == nullptr) return CDERR_INITIALIZATION;
    bool isKnown = record->lStructSize == sizeof(OPENFILENAMEW) ||
                   record->lStructSize == OPENFILENAME_SIZE_VERSION_400W || record->lStructSize == narrowRecordSize;
    if (!isKnown) return CDERR_STRUCTSIZE;
    return record->lpstrFile == nullptr || record->nMaxFile == 0 ? CDERR_INITIALIZATION : 0;
}
