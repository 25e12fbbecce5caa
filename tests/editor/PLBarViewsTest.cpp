// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLBarButton.h"
#include "editor/PLFormatBarView.h"
#include "editor/PLTagBarView.h"
#include "editor/PLTagField.h"
#include "platform/PLKeyGlyphs.h"
#include "support/PLTestEnvironment.h"
#include "theme/PLTheme.h"

#include <QAccessible>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QImage picture(QWidget &widget, int scale)
{
    QImage image(widget.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    widget.render(&image);
    return image;
}

bool isNear(const QColor &left, const QColor &right, int tolerance = 1)
{
    return qAbs(left.red() - right.red()) <= tolerance && qAbs(left.green() - right.green()) <= tolerance &&
           qAbs(left.blue() - right.blue()) <= tolerance;
}

QColor between(const QColor &from, const QColor &to, double fraction)
{
    const auto mix = [fraction](int left, int right) { return qRound(left + (right - left) * fraction); };
    return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

} // namespace

class PLBarViewsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFormatBarIsAGradientAndALine_data();
    void theFormatBarIsAGradientAndALine();
    void theTagBarIsShadedPaperAndALine_data();
    void theTagBarIsShadedPaperAndALine();
    void buttonsAreThoseOfTheTable_data();
    void buttonsAreThoseOfTheTable();
    void buttonsTellTheirCommand();
    void aClickLeavesTheFocusAndTabTakesIt();
    void aButtonIsPressedByKey_data();
    void aButtonIsPressedByKey();
    void theToggleShowsWhatItIsTold();
    void theWordsStandBesideThePreviewButton();
    void aNarrowBarKeepsThePreviewButtonAndTheWords();
    void whatHasNoPlaceIsInAMenu_data();
    void whatHasNoPlaceIsInAMenu();
    void theMenuIsReachedByKey();
    void aRightToLeftBarIsMirrored();
    void fontsAreThoseOfTheLook();
    void theTagBarHoldsItsFieldAndTexts_data();
    void theTagBarHoldsItsFieldAndTexts();
    void keysAreNamedAsTheDesktopDoes_data();
    void keysAreNamedAsTheDesktopDoes();

private:
    PLTestEnvironment m_environment;
};

void PLBarViewsTest::theFormatBarIsAGradientAndALine_data()
{
    QTest::addColumn<int>("scale");
    QTest::newRow("scale 1") << 1;
    QTest::newRow("scale 2") << 2;
}

void PLBarViewsTest::theFormatBarIsAGradientAndALine()
{
    QFETCH(int, scale);
    PLFormatBarView bar;
    bar.resize(900, PLFormatBarView::barHeight);
    const QImage image = picture(bar, scale);
    const QColor cover = PLTheme::coverColor();
    const QColor light = PLTheme::highlighted(cover, 0.25);
    const int height = PLFormatBarView::barHeight * scale;
    for (const int x : {0, 3 * scale, image.width() - 1}) {
        for (const int y : {0, height / 4, height / 2, height - scale - 1})
            QVERIFY2(isNear(image.pixelColor(x, y), between(light, cover, (y + 0.5) / height)),
                     qPrintable(QString::number(y)));
        for (int y = height - scale; y < height; ++y)
            QVERIFY(isNear(image.pixelColor(x, y), PLTheme::shadowed(cover, 0.2)));
    }
}

void PLBarViewsTest::theTagBarIsShadedPaperAndALine_data()
{
    theFormatBarIsAGradientAndALine_data();
}

void PLBarViewsTest::theTagBarIsShadedPaperAndALine()
{
    QFETCH(int, scale);
    PLTagBarView bar;
    bar.resize(600, PLTagBarView::barHeight);
    const QImage image = picture(bar, scale);
    const int height = PLTagBarView::barHeight * scale;
    for (const int x : {0, 3 * scale, image.width() - 1}) {
        for (const int y : {0, height / 2, height - scale - 1})
            QVERIFY(isNear(image.pixelColor(x, y), PLTheme::shadowed(PLTheme::paperColor(), 0.03)));
        for (int y = height - scale; y < height; ++y)
            QVERIFY(isNear(image.pixelColor(x, y), PLTheme::shadowed(PLTheme::coverColor(), 0.1)));
    }
}

void PLBarViewsTest::buttonsAreThoseOfTheTable_data()
{
    QTest::addColumn<PLCommand>("command");
    QTest::addColumn<int>("tag");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("french");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("frenchTip");
    QTest::addColumn<QString>("englishTip");
    QTest::newRow("heading 1") << PLCommand::FormatHeading << 1 << 34 << u"T1"_s << u"H1"_s
                               << u"Titre de niveau 1 (Ctrl+1)"_s << u"Heading level 1 (Ctrl+1)"_s;
    QTest::newRow("heading 3") << PLCommand::FormatHeading << 3 << 34 << u"T3"_s << u"H3"_s
                               << u"Titre de niveau 3 (Ctrl+3)"_s << u"Heading level 3 (Ctrl+3)"_s;
    QTest::newRow("bold") << PLCommand::FormatBold << 0 << 30 << u"G"_s << u"B"_s << u"Gras (Ctrl+B)"_s
                          << u"Bold (Ctrl+B)"_s;
    QTest::newRow("italic") << PLCommand::FormatItalic << 0 << 30 << u"I"_s << u"I"_s
                            << u"Italique (Ctrl+I)"_s << u"Italic (Ctrl+I)"_s;
    QTest::newRow("strikethrough") << PLCommand::FormatStrikethrough << 0 << 30 << u"S"_s << u"S"_s
                                   << u"Barré"_s << u"Strikethrough"_s;
    QTest::newRow("quote") << PLCommand::FormatQuote << 0 << 30 << u"❝"_s << u"❝"_s << u"Citation (Ctrl+')"_s
                           << u"Quote (Ctrl+')"_s;
    QTest::newRow("bullets") << PLCommand::FormatBulletList << 0 << 58 << u"• Liste"_s << u"• List"_s
                             << u"Liste à puces"_s << u"Bulleted List"_s;
    QTest::newRow("numbers") << PLCommand::FormatNumberedList << 0 << 58 << u"1. Liste"_s << u"1. List"_s
                             << u"Liste numérotée"_s << u"Numbered List"_s;
    QTest::newRow("separator") << PLCommand::FormatSeparator << 0 << 30 << u"❦"_s << u"❦"_s
                               << u"Séparateur de scène"_s << u"Scene Break"_s;
    QTest::newRow("link") << PLCommand::FormatLink << 0 << 42 << u"Lien"_s << u"Link"_s << u"Lien (Ctrl+K)"_s
                          << u"Link (Ctrl+K)"_s;
    QTest::newRow("preview") << PLCommand::TogglePreview << 0 << 70 << u"Aperçu"_s << u"Preview"_s
                             << u"Afficher ou masquer l'aperçu (Ctrl+Alt+P)"_s
                             << u"Show or hide the preview (Ctrl+Alt+P)"_s;
}

void PLBarViewsTest::buttonsAreThoseOfTheTable()
{
    QFETCH(PLCommand, command);
    QFETCH(int, tag);
    for (const bool isEnglish : {false, true}) {
        m_environment.setLanguage(isEnglish ? u"en"_s : u"fr"_s);
        QFETCH(QString, french);
        QFETCH(QString, english);
        QFETCH(QString, frenchTip);
        QFETCH(QString, englishTip);
        const PLFormatBarView bar;
        const PLBarButton *button = bar.button(command, tag);
        QVERIFY(button);
        const QString tip = isEnglish ? englishTip : frenchTip;
        QCOMPARE(button->text(), isEnglish ? english : french);
        QCOMPARE(button->toolTip(), tip);
        QTEST(button->width(), "width");
        const QAccessibleInterface *accessible =
            QAccessible::queryAccessibleInterface(const_cast<PLBarButton *>(button));
        QCOMPARE(accessible->text(QAccessible::Name), tip.section(u" (Ctrl"_s, 0, 0));
        QVERIFY(QFontMetrics(button->font()).horizontalAdvance(button->text()) <= button->width() - 4);
    }
    m_environment.setLanguage(u"fr"_s);
}

void PLBarViewsTest::buttonsTellTheirCommand()
{
    PLFormatBarView bar;
    bar.resize(900, PLFormatBarView::barHeight);
    QList<std::pair<PLCommand, int>> told;
    connect(&bar, &PLFormatBarView::commandTriggered, this, [&](PLCommand command, int tag) {
        told.append({command, tag});
    });
    bar.show();
    QTest::mouseClick(bar.button(PLCommand::FormatHeading, 2), Qt::LeftButton);
    QTest::mouseClick(bar.button(PLCommand::FormatLink), Qt::LeftButton);
    QTest::mouseClick(bar.button(PLCommand::TogglePreview), Qt::LeftButton);
    QCOMPARE(told,
             (QList<std::pair<PLCommand, int>>{
                 {PLCommand::FormatHeading, 2}, {PLCommand::FormatLink, 0}, {PLCommand::TogglePreview, 0}}));
    QVERIFY(!bar.button(PLCommand::FormatHeading, 4));
}

void PLBarViewsTest::aClickLeavesTheFocusAndTabTakesIt()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *edit = new QLineEdit;
    auto *bar = new PLFormatBarView;
    layout->addWidget(edit);
    layout->addWidget(bar);
    window.resize(900, 200);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    edit->setFocus();
    QTest::mouseClick(bar->button(PLCommand::FormatBold), Qt::LeftButton);
    QVERIFY(edit->hasFocus());
    QTest::keyClick(edit, Qt::Key_Tab);
    QVERIFY(bar->button(PLCommand::FormatHeading, 1)->hasFocus());
    QTest::keyClick(bar->button(PLCommand::FormatHeading, 1), Qt::Key_Tab);
    QVERIFY(bar->button(PLCommand::FormatHeading, 2)->hasFocus());
}

void PLBarViewsTest::aButtonIsPressedByKey_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("space") << int(Qt::Key_Space);
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
}

void PLBarViewsTest::aButtonIsPressedByKey()
{
    QFETCH(int, key);
    PLFormatBarView bar;
    int told = 0;
    connect(&bar, &PLFormatBarView::commandTriggered, this, [&] { ++told; });
    QTest::keyClick(bar.button(PLCommand::FormatBold), Qt::Key(key));
    QCOMPARE(told, 1);
}

void PLBarViewsTest::theToggleShowsWhatItIsTold()
{
    PLFormatBarView bar;
    const PLBarButton *preview = bar.button(PLCommand::TogglePreview);
    QVERIFY(preview->isCheckable() && !preview->isChecked());
    QTest::keyClick(bar.button(PLCommand::TogglePreview), Qt::Key_Space); // whoever shows the preview says so
    QVERIFY(!preview->isChecked());
    int told = 0;
    connect(&bar, &PLFormatBarView::commandTriggered, this, [&] { ++told; });
    bar.setPreviewOn(true);
    QVERIFY(preview->isChecked());
    QCOMPARE(told, 0);
    QVERIFY(!bar.button(PLCommand::FormatBold)->isCheckable());
}

void PLBarViewsTest::theWordsStandBesideThePreviewButton()
{
    PLFormatBarView bar;
    bar.resize(900, PLFormatBarView::barHeight);
    bar.show();
    bar.setWordCountText(u"1\u202f234 mots"_s);
    QCOMPARE(bar.wordCountText(), u"1\u202f234 mots"_s);
    const auto *label = bar.findChild<QLabel *>();
    QVERIFY(label->isVisible());
    QCOMPARE(label->font().pixelSize(), 11);
    QVERIFY(label->geometry().right() < bar.button(PLCommand::TogglePreview)->geometry().left());
    QVERIFY(label->geometry().left() > bar.button(PLCommand::FormatLink)->geometry().right());
    QVERIFY(label->width() >= label->sizeHint().width());
}

void PLBarViewsTest::aNarrowBarKeepsThePreviewButtonAndTheWords()
{
    PLFormatBarView bar;
    bar.setWordCountText(u"1234 mots"_s);
    bar.show();
    const auto *words = bar.findChild<QLabel *>();
    for (int width = 900; width >= 320; width -= 7) {
        bar.resize(width, PLFormatBarView::barHeight);
        const QRect preview = bar.button(PLCommand::TogglePreview)->geometry();
        QVERIFY(bar.button(PLCommand::TogglePreview)->isVisible() && bar.rect().contains(preview));
        for (const PLCommand command :
             {PLCommand::FormatBold, PLCommand::FormatBulletList, PLCommand::FormatLink})
            QVERIFY(!bar.button(command)->isVisible() ||
                    bar.button(command)->geometry().right() < words->geometry().left());
        QVERIFY(words->isVisible() && words->geometry().right() < preview.left());
    }
    QVERIFY(!bar.button(PLCommand::FormatLink)->isVisible());
    QVERIFY(bar.button(PLCommand::FormatHeading, 1)->isVisible());
}

void PLBarViewsTest::whatHasNoPlaceIsInAMenu_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("last");
    QTest::newRow("French") << u"fr"_s << u"Autres commandes"_s << u"Lien"_s;
    QTest::newRow("English") << u"en"_s << u"More Commands"_s << u"Link"_s;
}

void PLBarViewsTest::whatHasNoPlaceIsInAMenu()
{
    QFETCH(QString, language);
    m_environment.setLanguage(language);
    PLFormatBarView bar;
    bar.setWordCountText(u"1234 mots"_s);
    bar.show();
    m_environment.setLanguage(u"fr"_s);
    PLBarButton *more = bar.moreButton();
    QTEST(more->accessibleName(), "name");
    QTEST(more->toolTip(), "name");
    for (int width = 900; width >= 200; width -= 7) {
        bar.resize(width, PLFormatBarView::barHeight);
        Q_EMIT more->menu()->aboutToShow();
        const QList<QAction *> actions = more->menu()->actions();
        const auto buttons = bar.findChildren<PLBarButton *>();
        const auto shown = std::count_if(buttons.begin(), buttons.end(),
                                         [&](auto *button) { return button != more && button->isVisible(); });
        QCOMPARE(shown + actions.size(), 12);
        QCOMPARE(more->isVisible(), !actions.isEmpty());
        if (actions.isEmpty())
            continue;
        QTEST(actions.constLast()->text(), "last");
        QVERIFY(more->geometry().right() < bar.button(PLCommand::TogglePreview)->geometry().left());
        for (const PLBarButton *button : buttons)
            QVERIFY(button == more || !button->isVisible() ||
                    !button->geometry().intersects(more->geometry()));
    }
    QSignalSpy told(&bar, &PLFormatBarView::commandTriggered);
    more->menu()->actions().constLast()->trigger();
    QCOMPARE(told.count(), 1);
    QCOMPARE(told[0][0].value<PLCommand>(), PLCommand::FormatLink);
}

void PLBarViewsTest::theMenuIsReachedByKey()
{
    PLFormatBarView bar;
    bar.resize(400, PLFormatBarView::barHeight);
    bar.show();
    bar.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&bar));
    bar.button(PLCommand::FormatHeading, 1)->setFocus();
    for (int presses = 0; presses < 12 && !bar.moreButton()->hasFocus(); ++presses)
        QTest::keyClick(bar.focusWidget(), Qt::Key_Tab);
    QVERIFY(bar.moreButton()->hasFocus());
    QSignalSpy told(&bar, &PLFormatBarView::commandTriggered);
    QTimer::singleShot(0, this, [&bar] {
        QVERIFY(bar.moreButton()->menu()->isVisible());
        QTest::keyClick(bar.moreButton()->menu(), Qt::Key_Up);
        QTest::keyClick(bar.moreButton()->menu(), Qt::Key_Return);
    });
    QTest::keyClick(bar.moreButton(), Qt::Key_Space);
    QCOMPARE(told.count(), 1);
    QCOMPARE(told[0][0].value<PLCommand>(), PLCommand::FormatLink);
    QTest::keyClick(bar.moreButton(), Qt::Key_Tab);
    QCOMPARE(bar.focusWidget(), bar.button(PLCommand::TogglePreview));
}

void PLBarViewsTest::aRightToLeftBarIsMirrored()
{
    PLFormatBarView bar;
    bar.resize(900, PLFormatBarView::barHeight);
    bar.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(bar.button(PLCommand::FormatHeading, 1)->x() > bar.button(PLCommand::FormatHeading, 2)->x());
    QVERIFY(bar.button(PLCommand::TogglePreview)->x() < 20);
}

void PLBarViewsTest::fontsAreThoseOfTheLook()
{
    const PLFormatBarView bar;
    const auto font = [&](PLCommand command) { return bar.button(command)->font(); };
    QCOMPARE(font(PLCommand::FormatBold), PLTheme::systemFont(13, QFont::Bold));
    QCOMPARE(font(PLCommand::FormatStrikethrough), PLTheme::systemFont(13));
    QCOMPARE(font(PLCommand::FormatItalic).families().value(0), u"Georgia"_s);
    QCOMPARE(font(PLCommand::FormatItalic).pixelSize(), 13);
}

void PLBarViewsTest::theTagBarHoldsItsFieldAndTexts_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("placeholder");
    QTest::newRow("French") << u"fr"_s << u"Tags :"_s
                            << u"Ajoutez des tags (personnages, lieux, thèmes…), séparés par des virgules"_s;
    QTest::newRow("English") << u"en"_s << u"Tags:"_s
                             << u"Add tags (characters, places, themes…), separated by commas"_s;
}

void PLBarViewsTest::theTagBarHoldsItsFieldAndTexts()
{
    QFETCH(QString, language);
    m_environment.setLanguage(language);
    PLTagBarView bar;
    bar.resize(500, PLTagBarView::barHeight);
    bar.show();
    QTEST(bar.findChild<QLabel *>()->text(), "label");
    QTEST(bar.tagField()->placeholderText(), "placeholder");
    QCOMPARE(bar.tagField()->height(), PLTagField::fieldHeight);
    QCOMPARE(bar.tagField()->y(), 4);
    m_environment.setLanguage(u"fr"_s);
}

void PLBarViewsTest::keysAreNamedAsTheDesktopDoes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("named");
    QTest::addColumn<QString>("withoutKeys");
    QTest::newRow("one") << u"Gras (⌘B)"_s << u"Gras (Ctrl+B)"_s << u"Gras"_s;
    QTest::newRow("two") << u"Aperçu (⌥⌘P)"_s << u"Aperçu (Ctrl+Alt+P)"_s << u"Aperçu"_s;
    QTest::newRow("all") << u"x (⇧⌥⌘⌃A)"_s << u"x (Meta+Ctrl+Alt+Shift+A)"_s << u"x"_s;
    QTest::newRow("two shortcuts") << u"⌘A, ⇧⌘B"_s << u"Ctrl+A, Ctrl+Shift+B"_s << u"⌘A, ⇧⌘B"_s;
    QTest::newRow("none") << u"Liste (à puces)"_s << u"Liste (à puces)"_s << u"Liste (à puces)"_s;
    QTest::newRow("at the end") << u"touche ⌘"_s << u"touche Ctrl+"_s << u"touche ⌘"_s;
    QTest::newRow("open") << u"a ("_s << u"a ("_s << u"a ("_s;
    QTest::newRow("empty") << QString() << QString() << QString();
}

void PLBarViewsTest::keysAreNamedAsTheDesktopDoes()
{
#ifdef Q_OS_MACOS
    QSKIP("This desktop writes the glyphs.");
#endif
    QFETCH(QString, text);
    QTEST(PLTextWithPlatformKeys(text), "named");
    QTEST(PLTextWithoutKeys(text), "withoutKeys");
}

QTEST_MAIN(PLBarViewsTest)
#include "PLBarViewsTest.moc"
