#include "platform/qt/listText.h"

#include <QGuiApplication>
#include <QStyleHints>

#include <algorithm>

int findText(const TextSearch& search, int count, const TextOfRow& textOf) {
    auto fits = [&](const QString& text) {
        return search.whole ? text.compare(search.text, Qt::CaseInsensitive) == 0
                            : text.startsWith(search.text, Qt::CaseInsensitive);
    };
    int first = search.after >= 0 && search.after < count ? search.after + 1 : 0;
    for (int i = 0; i < count; ++i) {
        int row = (first + i) % count;
        if (fits(textOf(row))) return row;
    }
    return -1;
}

int sortedPlace(const QString& text, int count, const TextOfRow& textOf) {
    int row = 0;
    while (row < count && textOf(row).compare(text, Qt::CaseInsensitive) <= 0)
        ++row;
    return row;
}

int TypedSearch::type(QChar letter, int current, int count, const TextOfRow& textOf) {
    int pause = QGuiApplication::styleHints()->keyboardInputInterval();
    if (!sinceLast_.isValid() || sinceLast_.elapsed() > pause) typed_.clear();
    sinceLast_.start();
    typed_ += letter;
    bool isOneLetter = std::ranges::all_of(typed_, [&](QChar typed) { return typed == letter; });
    TextSearch search{isOneLetter ? QString(letter) : typed_, current};
    // While the text grows, the row where the user stands may still be the right one.
    if (!isOneLetter) search.after = current > 0 ? current - 1 : -1;
    return findText(search, count, textOf);
}
