// What an edit control is made of: a widget for one line or for several that edits a text. Positions count as programs
// see the text, in which the end of a line is "\r\n".
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

class EditField {
public:
    struct Span {
        int begin;
        int end;
        bool isEmpty() const noexcept { return begin == end; }
    };
    // What a user may enter when the program sets no limit, or the limit 0.
    static constexpr int usualLimit = 0x7FFF;
    static constexpr int noLimit = 0x7FFFFFFE;

    virtual ~EditField() = default;

    virtual QString content() const = 0;
    // The program's: however long it is, and the user cannot undo it. The caret goes to the front.
    virtual void setContent(const QString& text) = 0;
    virtual Span selection() const = 0;
    // The caret goes to the end.
    virtual void select(Span span) = 0;
    // As if typed: no longer than the limit leaves room, and `edited` runs.
    virtual void replaceSelection(const QString& text) = 0;
    virtual void eraseBack() = 0;
    virtual void showCaret() = 0;

    virtual int limit() const = 0;
    // A text that is longer already stays as it is.
    virtual void setLimit(int limit) = 0;
    virtual bool isReadOnly() const = 0;
    virtual void setReadOnly(bool isReadOnly) = 0;
    virtual bool isModified() const = 0;
    virtual void setModified(bool isModified) = 0;

    virtual void cut() = 0;
    virtual void copy() = 0;
    virtual void paste() = 0;
    virtual bool canUndo() const = 0;
    virtual void undo() = 0;
    virtual int lineCount() const = 0;

    // A user's change, and what counts as one.
    std::function<void()> edited;
    // Something did not fit.
    std::function<void()> overflowed;
};

struct EditTraits {
    bool isPassword = false;
    bool hasFrame = true;
    bool wraps = true;
    bool hasScrollBar = false;
    Qt::Alignment alignment = Qt::AlignLeft;
};

// Widgets that are EditField, too.
std::unique_ptr<QWidget> makeLineField(const EditTraits& traits, QWidget* parent);
std::unique_ptr<QWidget> makeTextField(const EditTraits& traits, QWidget* parent);
