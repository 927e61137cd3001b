// What a program asks of a file dialog, and what it gets: the record of the published calls in this layer's terms.
#pragma once

#include "platform/common_dialogs.h"

#include <QString>
#include <QStringList>

struct FileFilter {
    QString label;
    QStringList patterns;
};

struct FileChoice {
    explicit FileChoice(const OPENFILENAMEW& record);

    bool wants(DWORD flag) const noexcept { return (flags & flag) != 0; }
    // The name that the program gives to what the user typed: with the extension that goes without saying.
    QString completed(const QString& path) const;

    DWORD flags;
    QString title;
    // Empty: the desktop's usual one, or where the last choice was.
    QString folder;
    QString name;
    QString extension;
    QList<FileFilter> filters;
    // The pair that is chosen, from 0.
    int filter = 0;
    // The user's choice, with slashes; empty for none.
    QString path;
};

// Writes the choice into the record. 0, or the number for CommDlgExtendedError: with FNERR_BUFFERTOOSMALL the first
// character of lpstrFile is the number of characters that there must be room for, with the terminator.
// REQUIRES: choice.path is not empty.
DWORD giveBack(const FileChoice& choice, OPENFILENAMEW& record);

// 0, or why the record is no use.
DWORD faultOf(const OPENFILENAMEW* record);
