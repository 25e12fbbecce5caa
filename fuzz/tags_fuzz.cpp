// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// Tags of any text, and a tag field that is worked on by a script, beside a plain one.

#include "PLFuzzInput.h"
#include "PLPlainTagField.h"
#include "editor/PLTagFieldModel.h"
#include "foundation/PLText.h"
#include "notebook_window/PLTagCompletion.h"
#include "storage/PLProjectItem.h"

#include <QCoreApplication>
#include <QSet>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace {

void checkTags(const QString &text)
{
    const QStringList tags = PLProjectItem::tagsFromString(text);
    QSet<QString> met;
    for (const QString &tag : tags) {
        PLRequire(!tag.isEmpty() && !tag.contains(u','), "a tag is a text without a comma");
        PLRequire(PLTrimmedSpacesAndNewlines(tag) == tag, "a tag has no space at its ends");
        PLRequire(!met.contains(tag.toLower()), "a tag is there once");
        met.insert(tag.toLower());
    }
    const QStringList given = text.split(u',');
    for (const QString &piece : given) {
        const QString name = PLTrimmedSpacesAndNewlines(piece).toString();
        PLRequire(name.isEmpty() || met.contains(name.toLower()), "no tag is lost");
    }
    PLRequire(PLProjectItem::tagsFromString(PLProjectItem::stringFromTags(tags)) == tags,
              "tags are read as they were written");
}

void checkCompletion(const QStringList &known, const QStringList &typed, const QStringList &present)
{
    PLTagCompletion completion([&] { return known; });
    const QStringList clean = PLProjectItem::normalizedTags(typed);
    const QStringList added = completion.shouldAddObjects(typed, 0);
    PLRequire(added.size() == clean.size(), "each tag is added once");
    for (qsizetype index = 0; index < added.size(); ++index) {
        const bool isKnown = known.contains(added[index]);
        PLRequire(isKnown || added[index] == clean[index],
                  "a tag is spelled as it is known, or as it was typed");
        PLRequire(PLFoldedCaseAndDiacritics(added[index]) == PLFoldedCaseAndDiacritics(clean[index]),
                  "a tag is another one in its accents and case alone");
    }
    const QString prefix = typed.value(0);
    qsizetype place = 0;
    const QStringList proposed = completion.completionsForSubstring(prefix, present);
    for (const QString &tag : proposed) {
        place = known.indexOf(tag, place) + 1;
        PLRequire(place > 0, "known tags are proposed, in their order");
        PLRequire(!present.contains(tag), "a tag that is there is not proposed");
        PLRequire(!completion.knownTagMatching(tag).isNull(), "a proposed tag is known");
    }
}

/// The two fields and what both are told.
class Fields final
{
public:
    explicit Fields(const QStringList &known)
        : m_plain([this](const QStringList &tags) { return spelled(tags); })
        , m_completion([known] { return known; })
    {
        m_model.setFilter([this](const QStringList &tags, int) { return spelled(tags); });
    }

    void setTags(const QStringList &tags)
    {
        m_model.setTags(tags);
        m_plain.setTags(tags);
    }
    void step(PLFuzzInput &script);
    void check() const;
    void checkHistory();

private:
    template <typename Operation>
    void both(Operation operation)
    {
        operation(m_model);
        operation(m_plain);
    }

    QStringList spelled(const QStringList &tags) const
    {
        QStringList result;
        for (const QString &tag : tags) {
            const QString name = m_completion.knownTagMatching(tag);
            result.append(name.isNull() ? tag : name);
        }
        return result;
    }
    void insert(PLFuzzInput &script, int kind);
    void erase(PLFuzzInput &script, int kind);
    void deleteOne(bool forward);
    void deleteWord(bool forward);

    PLTagFieldModel m_model;
    PLPlainTagField m_plain;
    PLTagCompletion m_completion;
};

void Fields::step(PLFuzzInput &script)
{
    const int kind = script.below(18);
    if (kind < 6)
        return insert(script, kind);
    if (kind < 13)
        return erase(script, kind);
    const int first = script.below(m_plain.length() + 3) - 1;
    switch (kind) {
    case 13:
        return both([&](auto &field) { field.editToken(first); });
    case 14:
        return both([&](auto &field) { field.moveSelection(qBound(0, first, m_plain.length())); });
    case 15:
        return both([](auto &field) { field.undo(); });
    case 16:
        return both([](auto &field) { field.redo(); });
    default:
        const int second = script.below(m_plain.length() + 3) - 1;
        return both([&](auto &field) { field.setSelection(first, second); });
    }
}

void Fields::insert(PLFuzzInput &script, int kind)
{
    const QString text = script.text();
    switch (kind) {
    case 0:
        return both([&](auto &field) { field.insertText(text); });
    case 1:
        return both([&](auto &field) { field.insertPasted(text); });
    case 2:
        return both([&](auto &field) { field.insertTags(text.split(u'\n')); });
    case 3:
        return both([&](auto &field) { field.completeText(text); });
    case 4:
        return both([](auto &field) { field.prepareForTyping(); });
    default:
        return both([](auto &field) { field.commitText(); });
    }
}

void Fields::erase(PLFuzzInput &script, int kind)
{
    switch (kind) {
    case 6:
        return both([](auto &field) { field.removeSelection(); });
    case 7:
        return deleteOne(false);
    case 8:
        return deleteOne(true);
    case 9:
        return deleteWord(false);
    case 10:
        return deleteWord(true);
    case 11:
        return both([](auto &field) { field.endUndoStep(); });
    default:
        const int token = script.below(int(m_model.tokens().size()) + 2) - 1;
        if (token >= 0 && token < m_model.tokens().size())
            m_plain.remove(m_model.positionOfToken(token), m_model.positionOfToken(token) + 1);
        m_model.removeToken(token);
    }
}

/// The character beside the caret, or the tag, which is selected first.
void Fields::deleteOne(bool forward)
{
    const int caret = m_plain.caret();
    const int offset = caret - m_model.textIndex();
    const bool isInText = m_model.isCaretInText() && (forward ? caret < m_model.textEnd() : offset > 0);
    if (m_plain.anchor() != caret) {
        m_plain.removeSelection();
    } else if (isInText && forward) {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, m_model.text());
        finder.setPosition(offset);
        do
            finder.toNextBoundary();
        while (PLSplitsPair(m_model.text(), finder.position()));
        m_plain.remove(caret, m_model.textIndex() + int(finder.position()), true);
    } else if (isInText) {
        const QString before = m_model.text().first(offset);
        const bool isPair =
            before.size() > 1 && before.last(2).front().isHighSurrogate() && before.back().isLowSurrogate();
        m_plain.remove(caret - (isPair ? 2 : 1), caret, true);
    } else {
        m_plain.setSelection(caret, forward ? caret + 1 : caret - 1);
    }
    forward ? m_model.deleteForward() : m_model.deleteBackward();
}

void Fields::deleteWord(bool forward)
{
    const int caret = m_plain.caret();
    const bool isInText =
        m_model.isCaretInText() && (forward ? caret < m_model.textEnd() : caret > m_model.textIndex());
    if (m_plain.anchor() != caret || !isInText)
        return deleteOne(forward);
    const int end = forward ? m_model.positionAfterWord(caret) : m_model.positionBeforeWord(caret);
    PLRequire(!PLSplitsPair(m_model.text(), end - m_model.textIndex()), "a word ends after a character");
    PLRequire(forward ? end > caret && end <= m_model.textEnd() : end < caret && end >= m_model.textIndex(),
              "a word has a character");
    m_plain.remove(qMin(caret, end), qMax(caret, end));
    forward ? m_model.deleteWordForward() : m_model.deleteWordBackward();
}

void Fields::check() const
{
    const int offset = m_model.caret() - m_model.textIndex();
    PLRequire(!PLSplitsPair(m_model.text(), offset), "the caret stands in no character");
    PLRequire(m_model.tokens() == m_plain.tokens(), "the field has the tokens of the plain one");
    PLRequire(m_model.text() == m_plain.text(), "the field has the text of the plain one");
    PLRequire(m_model.length() == m_plain.length(), "the field has the length of the plain one");
    PLRequire(m_model.caret() == m_plain.caret(), "the caret stands where it does in the plain one");
    PLRequire(m_model.anchor() == m_plain.anchor(), "the selection begins where it does in the plain one");
    PLRequire(m_model.canUndo() == m_plain.canUndo(), "there is as much to undo as in the plain one");
    PLRequire(m_model.canRedo() == m_plain.canRedo(), "there is as much to redo as in the plain one");
}

/// Everything is undone, and done again.
void Fields::checkHistory()
{
    while (m_model.canRedo())
        both([](auto &field) { field.redo(); });
    check();
    const QStringList tags = m_model.tags();
    PLRequire(tags == m_plain.tags(), "the field has the tags of the plain one");
    while (m_model.canUndo()) {
        both([](auto &field) { field.undo(); });
        check();
    }
    while (m_model.canRedo()) {
        both([](auto &field) { field.redo(); });
        check();
    }
    PLRequire(m_model.tags() == tags, "what is undone can be done again");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    PLFuzzInput input(data, size);
    const QStringList known = PLProjectItem::normalizedTags(input.texts().mid(0, 4));
    const QStringList first = input.texts();
    checkTags(first.join(u','));
    checkCompletion(known, first, known.mid(0, known.size() / 2));
    Fields fields(known);
    fields.setTags(first);
    fields.check();
    for (int steps = 0; steps < 32 && !input.atEnd(); ++steps) {
        fields.step(input);
        fields.check();
    }
    fields.checkHistory();
    return 0;
}
