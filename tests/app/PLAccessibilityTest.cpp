// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAppDelegate.h"
#include "app/PLTranslations.h"
#include "editor/PLBarButton.h"
#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "i18n/PLLocalization.h"
#include "notebook_window/PLProjectWindowController.h"
#include "platform/PLCommand.h"
#include "storage/PLRecentProjects.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTranslator>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// Roles that say nothing of what a control is for.
bool isVague(QAccessible::Role role)
{
    return role == QAccessible::NoRole || role == QAccessible::Client || role == QAccessible::Pane ||
           role == QAccessible::Window || role == QAccessible::Grouping || role == QAccessible::LayeredPane;
}

QString describe(QAccessibleInterface &item)
{
    const QObject *object = item.object();
    return u"%1 \"%2\" (role %3) in %4"_s.arg(
        object ? QString::fromLatin1(object->metaObject()->className()) : u"an item"_s,
        item.text(QAccessible::Name), QString::number(item.role(), 16),
        object && object->parent() ? QString::fromLatin1(object->parent()->metaObject()->className())
                                   : u"nothing"_s);
}

/// Adds to `faults` what somebody who does not see the screen cannot make out; counts the controls.
void lookAt(QAccessibleInterface *item, QStringList &faults, int &controls)
{
    if (!item || !item->isValid() || item->state().invisible)
        return;
    if (item->state().focusable && item->role() != QAccessible::Window) {
        ++controls;
        if (item->text(QAccessible::Name).trimmed().isEmpty())
            faults.append(u"no name: "_s + describe(*item));
        if (isVague(item->role()))
            faults.append(u"no role: "_s + describe(*item));
    }
    for (int index = 0; index < item->childCount(); ++index)
        lookAt(item->child(index), faults, controls);
}

/// Whether a label or button has the room that its text takes.
bool fits(const QWidget &widget)
{
    QSize needed = widget.sizeHint();
    const auto *label = qobject_cast<const QLabel *>(&widget);
    if (label && label->wordWrap())
        needed = QSize(0, label->heightForWidth(label->width()));
    // It draws itself, and asks for what the desktop's buttons would.
    if (const auto *button = qobject_cast<const PLBarButton *>(&widget))
        needed = button->fontMetrics().size(Qt::TextSingleLine, button->text());
    return widget.width() >= needed.width() && widget.height() >= needed.height();
}

QStringList textsWithoutRoom(const QWidget &window)
{
    QStringList faults;
    const QList<QWidget *> widgets = window.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const QString text = label ? label->text() : button ? button->text() : QString();
        if (!text.isEmpty() && widget->isVisible() && !fits(*widget))
            faults.append(u"no room for \"%1\": %2 x %3 instead of %4 x %5"_s.arg(text)
                              .arg(widget->width())
                              .arg(widget->height())
                              .arg(widget->sizeHint().width())
                              .arg(widget->sizeHint().height()));
    }
    return faults;
}

} // namespace

/// Every window and panel, in both languages, as a screen reader walks through it: each control that can have
/// the focus has a name and a role, and each text has its room.
class PLAccessibilityTest final : public QObject
{
    Q_OBJECT

private:
    /// The path of a notebook of this name, with one chapter of misspelt text and tags.
    QString makeNotebook(const QString &name) const;
    bool openNotebook();
    /// What is to be mended in the windows that are shown now, a line each.
    static QString faultsOfShownWindows();
    static bool hasWindow(const QString &frenchTitle);
    /// Looks at the panel that an operation waits for, then cancels it.
    static QString faultsOfModal(const std::function<void()> &operation);

    const QFont m_usualFont = QApplication::font();
    QTemporaryDir m_enchant; ///< it would write into the home of whoever runs the tests
    std::unique_ptr<PLTestEnvironment> m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<PLAppDelegate> m_delegate;

    void addLanguages() const;

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theWalkFindsWhatIsMissing();
    void theEmptyLibrary_data() { addLanguages(); }
    void theEmptyLibrary();
    void theLibrary_data() { addLanguages(); }
    void theLibrary();
    void aNotebook_data() { addLanguages(); }
    void aNotebook();
    void aNotebookWithoutAPage_data() { addLanguages(); }
    void aNotebookWithoutAPage();
    void thePreferences_data() { addLanguages(); }
    void thePreferences();
    void theAboutPanel_data() { addLanguages(); }
    void theAboutPanel();
    void theFindPanel_data() { addLanguages(); }
    void theFindPanel();
    void theSpellingPanel_data() { addLanguages(); }
    void theSpellingPanel();
    void anAlert_data() { addLanguages(); }
    void anAlert();
    void thePanelOfANewNotebook_data() { addLanguages(); }
    void thePanelOfANewNotebook();
    void thePanelOfOpening_data() { addLanguages(); }
    void thePanelOfOpening();
};

void PLAccessibilityTest::addLanguages() const
{
    QTest::addColumn<QString>("language");
    QTest::newRow("fr") << u"fr"_s;
    QTest::newRow("en") << u"en"_s;
    QTest::newRow("fr, large type") << u"fr"_s;
    QTest::newRow("en, large type") << u"en"_s;
}

QString PLAccessibilityTest::makeNotebook(const QString &name) const
{
    const QString path = m_folder->filePath(name);
    const bool made =
        PLMakeFile(path + u"/projet.md"_s, "---\ntitre: " + name.toUtf8() + "\nauteur: Anne\n---\n") &&
        PLMakeFile(path + u"/Livre/01 - A.md"_s, "---\ntags: Paris, mer\n---\n\nUn xyzzyx the the\n");
    return made ? path : QString();
}

bool PLAccessibilityTest::openNotebook()
{
    return m_delegate->openFile(makeNotebook(u"Roman"_s)) &&
           QTest::qWaitForWindowActive(m_delegate->projectWindows().front()->window());
}

QString PLAccessibilityTest::faultsOfShownWindows()
{
    QCoreApplication::processEvents();
    QStringList faults;
    int controls = 0;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (!window->isVisible())
            continue;
        lookAt(QAccessible::queryAccessibleInterface(window), faults, controls);
        faults += textsWithoutRoom(*window);
    }
    if (controls == 0)
        faults.append(u"there is no control at all"_s);
    return faults.join(u'\n');
}

bool PLAccessibilityTest::hasWindow(const QString &frenchTitle)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [&frenchTitle](const QWidget *window) {
        return window->isVisible() && window->windowTitle() == PLLocalizedString(frenchTitle);
    });
}

QString PLAccessibilityTest::faultsOfModal(const std::function<void()> &operation)
{
    QString faults = u"no panel came up"_s;
    QTimer::singleShot(0, qApp, [&faults] {
        auto *panel = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!panel)
            return;
        faults = faultsOfShownWindows();
        panel->reject();
    });
    operation();
    return faults;
}

void PLAccessibilityTest::initTestCase()
{
    QVERIFY(m_enchant.isValid());
    qputenv("ENCHANT_CONFIG_DIR", QFile::encodeName(m_enchant.path()));
}

void PLAccessibilityTest::init()
{
    m_environment = std::make_unique<PLTestEnvironment>();
    const QString row = QString::fromLatin1(QTest::currentDataTag());
    if (!row.isEmpty())
        m_environment->setLanguage(row.left(2));
    QFont font = m_usualFont;
    if (row.endsWith(u"large type"_s))
        font.setPixelSize(2 * QFontInfo(m_usualFont).pixelSize());
    QApplication::setFont(font);
    PLInstallTranslations(*qApp);
    m_folder = std::make_unique<QTemporaryDir>();
    m_delegate = std::make_unique<PLAppDelegate>();
}

void PLAccessibilityTest::cleanup()
{
    m_delegate.reset();
    qDeleteAll(qApp->findChildren<QTranslator *>());
    m_folder.reset();
    m_environment.reset();
}

/// The test of the tests: a control without a name, one without a role, a text without room.
void PLAccessibilityTest::theWalkFindsWhatIsMissing()
{
    QWidget window;
    auto *nameless = new QPushButton(&window);
    auto *vague = new QWidget(&window);
    vague->setFocusPolicy(Qt::TabFocus);
    vague->setAccessibleName(u"something"_s);
    auto *cramped = new QLabel(u"A text that is longer than its label"_s, &window);
    cramped->resize(20, 10);
    window.show();
    const QString faults = faultsOfShownWindows();
    QVERIFY2(faults.contains(u"no name: QPushButton"_s), qPrintable(faults));
    QVERIFY2(faults.contains(u"no role: QWidget \"something\""_s), qPrintable(faults));
    QVERIFY2(faults.contains(u"no room for \"A text"_s), qPrintable(faults));
    nameless->setText(u"OK"_s);
    nameless->adjustSize();
    delete vague;
    cramped->adjustSize();
    QCOMPARE(faultsOfShownWindows(), QString());
}

void PLAccessibilityTest::theEmptyLibrary()
{
    m_delegate->showLibrary();
    QCOMPARE(faultsOfShownWindows(), QString());
}

void PLAccessibilityTest::theLibrary()
{
    for (const QString &name : {u"Roman"_s, u"Un titre bien plus long que la place d'un livre"_s})
        PLRecentProjects::addURL(QUrl::fromLocalFile(makeNotebook(name)));
    PLRecentProjects::addURL(QUrl::fromLocalFile(m_folder->filePath(u"Perdu"_s)));
    m_delegate->showLibrary();
    QCOMPARE(faultsOfShownWindows(), QString());
}

void PLAccessibilityTest::aNotebook()
{
    QVERIFY(openNotebook());
    QCOMPARE(faultsOfShownWindows(), QString());
}

void PLAccessibilityTest::aNotebookWithoutAPage()
{
    const QString path = m_folder->filePath(u"Vide"_s);
    QVERIFY(PLMakeFile(path + u"/projet.md"_s, "---\ntitre: Vide\n---\n"));
    QVERIFY(m_delegate->openFile(path));
    QCOMPARE(faultsOfShownWindows(), QString());
}

void PLAccessibilityTest::thePreferences()
{
    PLLocalization::currentLanguage(); // fixed now
    PLLocalization::setPreferredLanguage(PLLocalization::isEnglish() ? u"fr"_s : u"en"_s);
    m_delegate->showPreferences(); // with the text that a change waits
    QCOMPARE(faultsOfShownWindows(), QString());
}

void PLAccessibilityTest::theAboutPanel()
{
    PLCommandChain::perform(PLCommand::ShowAbout);
    QVERIFY(hasWindow(u"À propos d'Aquilane"_s));
    QCOMPARE(faultsOfShownWindows(), QString());
}

void PLAccessibilityTest::theFindPanel()
{
    QVERIFY(openNotebook());
    m_delegate->projectWindows().front()->editorView()->textView()->setFocus();
    PLCommandChain::perform(PLCommand::PerformFindPanelAction, 1);
    QVERIFY(hasWindow(u"Rechercher"_s));
    QCOMPARE(faultsOfShownWindows(), QString());
    PLCommandChain::perform(PLCommand::PerformFindPanelAction, 12); // with replacing
    QCOMPARE(faultsOfShownWindows(), QString());
}

void PLAccessibilityTest::theSpellingPanel()
{
    QVERIFY(openNotebook());
    m_delegate->projectWindows().front()->editorView()->textView()->setFocus();
    PLCommandChain::perform(PLCommand::ShowGuessPanel);
    QVERIFY(hasWindow(u"Orthographe"_s));
    QCOMPARE(faultsOfShownWindows(), QString());
}

void PLAccessibilityTest::anAlert()
{
    const QString faults = faultsOfModal([this] { m_delegate->openFile(m_folder->filePath(u"Perdu"_s)); });
    QCOMPARE(faults, QString());
}

void PLAccessibilityTest::thePanelOfANewNotebook()
{
    QCOMPARE(faultsOfModal([this] { m_delegate->newProject(); }), QString());
}

void PLAccessibilityTest::thePanelOfOpening()
{
    QCOMPARE(faultsOfModal([this] { m_delegate->openProject(); }), QString());
}

QTEST_MAIN(PLAccessibilityTest)
#include "PLAccessibilityTest.moc"
