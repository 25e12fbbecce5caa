// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// What other programs may put on the clipboard or drop: any bytes in the forms that a page, a tag field and
// the shelf take.

#include "PLFuzzInput.h"
#include "editor/PLPageDocument.h"
#include "editor/PLPageTextView.h"
#include "editor/PLTagField.h"
#include "foundation/PLText.h"
#include "library/PLShelfView.h"
#include "storage/PLProject.h"
#include "storage/PLProjectItem.h"

#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTextCursor>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

void start()
{
    static int count = 1;
    static char name[] = "dropped_fuzz";
    static char *arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication *application = new QApplication(count, arguments); // never deleted: fonts go with it
    Q_UNUSED(application)
}

QString withUnixLineEnds(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s);
}

/// The caret is put somewhere, what is on the clipboard pasted, and that undone.
void checkPage(const QString &format, const QByteArray &bytes, int caret)
{
    auto *copied = new QMimeData; // the clipboard's
    copied->setData(format, bytes);
    const QString pasted =
        withUnixLineEnds(copied->hasHtml() ? PLTextOfHTML(copied->html()) : copied->text());
    QGuiApplication::clipboard()->setMimeData(copied);

    static auto *view = new PLPageTextView;
    const QString page = u"Où\u00a0?\n\n« Là\u202f! »\r\u2029fin"_s;
    view->setPageText(page);
    PLRequire(view->pageText() == page, "a page is shown as it is");
    const int place = caret % int(page.size() + 1);
    QTextCursor cursor(view->document());
    cursor.setPosition(place);
    view->setTextCursor(cursor);
    view->performCommand(PLCommand::Paste, 0);
    const QString expected = page.first(place) + pasted + page.sliced(place);
    PLRequire(view->pageText() == expected, "what is pasted stands at the caret, and the rest as it was");
    if (expected == page)
        return;
    view->undo();
    PLRequire(view->pageText() == page, "a paste is undone in one step");
    view->redo();
    PLRequire(view->pageText() == expected, "a paste is done again");
}

/// Dropped behind the tags that are there.
void checkTags(const QMimeData &data, const QStringList &dropped)
{
    static auto *field = new PLTagField;
    const QStringList tags{u"Été"_s, u"port"_s};
    field->setTags(tags);
    const QPoint place = field->caretRect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.ignore();
    QCoreApplication::sendEvent(field, &enter);
    PLRequire(enter.isAccepted() || dropped.isEmpty(), "a text may be dropped");
    if (!enter.isAccepted())
        return;
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(field, &drop);
    const QStringList now = field->tags();
    PLRequire(now == PLProjectItem::normalizedTags(now), "tags are clean after a drop");
    PLRequire(now.first(2) == tags, "the tags before a drop stay");
    const auto isThere = [&](const QString &tag) { return now.contains(tag, Qt::CaseInsensitive); };
    PLRequire(std::all_of(dropped.begin(), dropped.end(), isThere), "no dropped tag is lost");
}

/// The tags in a text, as a field takes them.
QStringList tagsOf(QString text)
{
    for (QChar &character : text) {
        if (PLIsNewline(character))
            character = u',';
        else if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    QStringList tags = PLProjectItem::tagsFromString(text);
    tags.removeIf([](const QString &tag) { return tag.toLower() != tag.toCaseFolded(); }); // as ß and ẞ
    return tags;
}

void checkShelf(const QMimeData &data)
{
    const QUrl image = PLShelfView::imageURLFromDrag(data);
    const QList<QUrl> urls = data.urls();
    PLRequire(image.isEmpty() || urls.contains(image), "a cover is one of what was dropped");
    const QString suffix = QFileInfo(image.toLocalFile()).suffix().toLower();
    PLRequire(image.isEmpty() || (image.isLocalFile() && PLProject::coverImageExtensions().contains(suffix)),
              "a cover is a picture of this machine");
}

/// HTML says a text as it stands, but for what no document takes.
void checkHTML(QString text)
{
    text.removeIf([](QChar character) {
        const char16_t unit = character.unicode();
        const bool isReserved = unit == 0xFEFF || (unit >= 0xFDD0 && unit <= 0xFDEF) || unit >= 0xFFF0;
        const bool isControl = PLIsNewline(character) || character.category() == QChar::Other_Control;
        return isReserved || character.isSurrogate() || (isControl && unit != u'\n');
    });
    while (text.startsWith(u'\n'))
        text.remove(0, 1);
    while (text.endsWith(u'\n'))
        text.chop(1);
    const QString html = u"<pre>"_s + text.toHtmlEscaped() + u"</pre>"_s;
    PLRequire(PLTextOfHTML(html) == text, "a text goes through HTML as it stands");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    start();
    PLFuzzInput input(data, size);
    const int kind = input.below(6);
    const int caret = input.byte();
    const QByteArray bytes = input.rest();
    QMimeData dropped;
    switch (kind) {
    case 0:
        checkPage(u"text/plain"_s, bytes, caret);
        break;
    case 1:
        checkPage(u"text/html"_s, bytes, caret);
        break;
    case 2:
        checkHTML(QString::fromUtf8(bytes));
        break;
    case 3:
        dropped.setData(u"text/plain"_s, bytes);
        checkTags(dropped, tagsOf(dropped.text()));
        break;
    case 4:
        dropped.setData(u"application/x-aquilane-tags"_s, bytes);
        checkTags(dropped, {});
        break;
    default:
        dropped.setData(u"text/uri-list"_s, bytes);
        checkShelf(dropped);
        checkTags(dropped, {});
        checkPage(u"text/uri-list"_s, bytes, caret);
    }
    QCoreApplication::sendPostedEvents(); // what the views put off, which would pile up
    return 0;
}
