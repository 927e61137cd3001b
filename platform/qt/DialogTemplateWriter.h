// Writes a dialog template for a page that a program puts together.
#pragma once

#include "platform/windows.h"

#include <string>
#include <string_view>
#include <vector>

class DialogTemplateWriter {
public:
    // In dialog units of the layer's own font.
    struct Area {
        int x;
        int y;
        int width;
        int height;
    };

    DialogTemplateWriter(int width, int height);

    // The class by its name. WS_CHILD and WS_VISIBLE need not be named.
    void add(std::u16string_view className, std::u16string_view text, DWORD style, WORD id, const Area& area);

    // Good until the next add() or the end of the writer.
    LPCDLGTEMPLATEW get() noexcept;

private:
    template <typename Record>
    void append(const Record& record);
    void appendText(std::u16string_view text);
    void align();

    std::vector<WORD> words_;
    WORD count_ = 0;
};
