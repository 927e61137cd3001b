// Texts of list controls: how they are found by what a program or a user gives of them.
#pragma once

#include <QElapsedTimer>
#include <QString>

#include <functional>

struct TextSearch {
    QString text;
    // The search begins behind this row and goes round; -1 begins at the first.
    int after = -1;
    // The whole text, or else how it begins. Neither looks at the case.
    bool whole = false;
};

using TextOfRow = std::function<QString(int row)>;

// The row found, or -1.
int findText(const TextSearch& search, int count, const TextOfRow& textOf);
// The row before which the text belongs among sorted ones.
int sortedPlace(const QString& text, int count, const TextOfRow& textOf);

// A user who types the beginning of a text to get to it. The letters count together as long as they come quickly; one
// letter again and again goes from one text that begins with it to the next.
class TypedSearch {
public:
    // The row that the letter leads to, or -1. `current` is where the user stands, -1 for nowhere.
    int type(QChar letter, int current, int count, const TextOfRow& textOf);

private:
    QString typed_;
    QElapsedTimer sinceLast_;
};
