// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLMarkdown.h"

#include "foundation/PLPreferences.h"
#include "i18n/PLLocalization.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The rows of the dialect, one by one.
class PLMarkdownTest final : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_preferences;
    void useLanguage(const QString &code);

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void escapingReplacesFourCharacters();
    void missingTextStaysMissingWhenEscaped();
    void inlineMarkup_data();
    void inlineMarkup();
    void codeSpansAreNotLookedForInAFormattedSpan();
    void blocks_data();
    void blocks();
    void linesMayHoldLineEndsOfTheirOwn_data();
    void linesMayHoldLineEndsOfTheirOwn();
    void pages_data();
    void pages();
    void pageWithNothingToShowHasAPlaceholder_data();
    void pageWithNothingToShowHasAPlaceholder();
    void documentWrapsTheFragment();
    void documentSpeaksEnglish();
    void styleSheetIsOneLineOf1401Characters();
    void wordCounts_data();
    void wordCounts();
    void deepQuotesNeedNoStack();
    void everyShapeRendersWhole_data();
    void everyShapeRendersWhole();
};

void PLMarkdownTest::initTestCase()
{
    QVERIFY(m_preferences.isValid());
    PLPreferences::useFile(m_preferences.filePath(u"preferences.ini"_s));
    useLanguage(u"fr"_s);
}

void PLMarkdownTest::cleanup()
{
    useLanguage(u"fr"_s);
}

void PLMarkdownTest::useLanguage(const QString &code)
{
    PLLocalization::setPreferredLanguage(code);
    PLLocalization::forgetCurrentLanguage();
}

void PLMarkdownTest::escapingReplacesFourCharacters()
{
    QCOMPARE(PLEscapeHTML(u"a & b < c > d \" e ' &amp;"_s),
             u"a &amp; b &lt; c &gt; d &quot; e ' &amp;amp;"_s);
}

void PLMarkdownTest::missingTextStaysMissingWhenEscaped()
{
    QVERIFY(PLEscapeHTML(QString()).isNull());
    QVERIFY(!PLEscapeHTML(u""_s).isNull());
    QVERIFY(PLEscapeHTML(u""_s).isEmpty());
}

void PLMarkdownTest::inlineMarkup_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("html");
    QTest::newRow("special characters") << u"x < y & z"_s << u"x &lt; y &amp; z"_s;
    QTest::newRow("double quote") << u"dit \"oui\""_s << u"dit &quot;oui&quot;"_s;
    QTest::newRow("apostrophe") << u"l'aube"_s << u"l'aube"_s;
    QTest::newRow("code is escaped") << u"x `a<b` y"_s << u"x <code>a&lt;b</code> y"_s;
    QTest::newRow("code is not formatted") << u"`**pas gras**`"_s << u"<code>**pas gras**</code>"_s;
    QTest::newRow("unclosed back-quote") << u"a `b "_s << u"a `b "_s;
    QTest::newRow("empty code") << u"a `` b"_s << u"a <code></code> b"_s;
    QTest::newRow("code, then an unclosed one") << u"`a` `b"_s << u"<code>a</code> `b"_s;
    QTest::newRow("after an unclosed back-quote, formatted") << u"`*a*"_s << u"`<em>a</em>"_s;
    QTest::newRow("code splits bold") << u"**a `x` b**"_s << u"**a <code>x</code> b**"_s;
    QTest::newRow("wiki link") << u"[[Marie]]"_s << u"<span class=\"lien\">Marie</span>"_s;
    QTest::newRow("empty wiki link") << u"[[]]"_s << u"[[]]"_s;
    QTest::newRow("wiki link takes the first brackets") << u"[[[a]]"_s << u"<span class=\"lien\">[a</span>"_s;
    QTest::newRow("wiki link closed too early") << u"[[a] [[b]]"_s << u"[[a] <span class=\"lien\">b</span>"_s;
    QTest::newRow("link") << u"[texte](page.html?x=1&y=2)"_s
                          << u"<a href=\"page.html?x=1&amp;y=2\">texte</a>"_s;
    QTest::newRow("quote in a target") << u"[a](b\"c)"_s << u"<a href=\"b&quot;c\">a</a>"_s;
    QTest::newRow("link without text") << u"[](x)"_s << u"[](x)"_s;
    QTest::newRow("image without text") << u"![](x)"_s << u"<img src=\"x\" alt=\"\">"_s;
    QTest::newRow("image before link") << u"![a](b)"_s << u"<img src=\"b\" alt=\"a\">"_s;
    QTest::newRow("target with a space") << u"[a](b c)"_s << u"[a](b c)"_s;
    QTest::newRow("target without a space, later") << u"[a](b [c](d)"_s << u"[a](b <a href=\"d\">c</a>"_s;
    QTest::newRow("empty target") << u"[a]()"_s << u"[a]()"_s;
    QTest::newRow("target with a bracket") << u"[a](b(c)d)"_s << u"<a href=\"b(c\">a</a>d)"_s;
    QTest::newRow("two links") << u"[a](b)[c](d)"_s << u"<a href=\"b\">a</a><a href=\"d\">c</a>"_s;
    QTest::newRow("bold") << u"**a**"_s << u"<strong>a</strong>"_s;
    QTest::newRow("bold with underscores") << u"__a__"_s << u"<strong>a</strong>"_s;
    QTest::newRow("bold italic") << u"***x***"_s << u"<strong><em>x</em></strong>"_s;
    QTest::newRow("not bold: space after the opening") << u"** a**"_s << u"<em>* a*</em>"_s;
    QTest::newRow("not bold: space before the closing") << u"**a **"_s << u"<em>*a *</em>"_s;
    QTest::newRow("shortest bold") << u"**a** b **c**"_s << u"<strong>a</strong> b <strong>c</strong>"_s;
    QTest::newRow("later closing when the first has a space")
        << u"**a ** b**"_s << u"<strong>a ** b</strong>"_s;
    QTest::newRow("asterisks only") << u"*****"_s << u"<strong>*</strong>"_s;
    QTest::newRow("italic") << u"*a* _b_"_s << u"<em>a</em> <em>b</em>"_s;
    QTest::newRow("asterisks inside a word") << u"2*3*4"_s << u"2*3*4"_s;
    QTest::newRow("underscores inside a word") << u"snake_case_name"_s << u"snake_case_name"_s;
    QTest::newRow("accents are letters") << u"é*a*"_s << u"é*a*"_s;
    QTest::newRow("combining marks are letters") << u"e\u0301*a*"_s << u"e\u0301*a*"_s;
    QTest::newRow("letters beyond 16 bits")
        << u"\U00010400*a* *b*\U00010400"_s << u"\U00010400*a* *b*\U00010400"_s;
    QTest::newRow("punctuation is no letter") << u"(*a*), «_b_»"_s << u"(<em>a</em>), «<em>b</em>»"_s;
    QTest::newRow("no-break space is a space") << u"**\u00A0a**"_s << u"<em>*\u00A0a*</em>"_s;
    QTest::newRow("bold inside italic") << u"*a **b** c*"_s << u"<em>a <strong>b</strong> c</em>"_s;
    QTest::newRow("strike-through") << u"~~a~~"_s << u"<del>a</del>"_s;
    QTest::newRow("one tilde") << u"~a~"_s << u"~a~"_s;
    QTest::newRow("emphasis in a target") << u"[a](*b*)"_s << u"<a href=\"<em>b</em>\">a</a>"_s;
    QTest::newRow("emphasis around a link") << u"*[a](b)*"_s << u"<em><a href=\"b\">a</a></em>"_s;
    QTest::newRow("emphasis after an entity") << u"&*a*"_s << u"&amp;<em>a</em>"_s;
    QTest::newRow("line end in emphasis") << u"**a\u2028b** **c**"_s << u"**a\u2028b** <strong>c</strong>"_s;
    QTest::newRow("line end in a link's text") << u"[a\u2028b](c)"_s << u"<a href=\"c\">a\u2028b</a>"_s;
    QTest::newRow("dollar") << u"**$1** [\\1]($2)"_s << u"<strong>$1</strong> <a href=\"$2\">\\1</a>"_s;
    QTest::newRow("empty") << u""_s << u""_s;
}

void PLMarkdownTest::inlineMarkup()
{
    QFETCH(QString, line);
    QTEST(PLMarkdown::inlineHTML(line), "html");
}

void PLMarkdownTest::codeSpansAreNotLookedForInAFormattedSpan()
{
    QCOMPARE(PLMarkdown::formattedSpan(u"*a `b` c*"_s), u"<em>a `b` c</em>"_s);
}

void PLMarkdownTest::blocks_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("html");
    const QString rule = u"<hr>\n"_s;
    QTest::newRow("blank lines") << u"\n \n\t\n"_s << u""_s;
    QTest::newRow("heading") << u"# Titre"_s << u"<h1>Titre</h1>\n"_s;
    QTest::newRow("closing hashes") << u"## Titre ##"_s << u"<h2>Titre</h2>\n"_s;
    QTest::newRow("six hashes") << u"###### T"_s << u"<h6>T</h6>\n"_s;
    QTest::newRow("no space after the hash") << u"#Titre"_s << u"<p>#Titre</p>\n"_s;
    QTest::newRow("seven hashes") << u"####### T"_s << u"<p>####### T</p>\n"_s;
    QTest::newRow("hash alone") << u"#"_s << u"<p>#</p>\n"_s;
    QTest::newRow("hash and space alone") << u"# "_s << u"<p>#</p>\n"_s;
    QTest::newRow("closing hash without a space") << u"# Sol#"_s << u"<h1>Sol</h1>\n"_s;
    QTest::newRow("hashes only") << u"# ##"_s << u"<h1></h1>\n"_s;
    QTest::newRow("hashes inside") << u"# a # b #"_s << u"<h1>a # b</h1>\n"_s;
    QTest::newRow("leading spaces") << u"   # Titre"_s << u"<h1>Titre</h1>\n"_s;
    QTest::newRow("four spaces") << u"    code"_s << u"<p>code</p>\n"_s;
    QTest::newRow("leading no-break space") << u"\u00A0\u3000# T"_s << u"<h1>T</h1>\n"_s;
    QTest::newRow("markup in a heading") << u"# *a*"_s << u"<h1><em>a</em></h1>\n"_s;
    QTest::newRow("carriage return after a heading") << u"# T ##\r"_s << u"<h1>T</h1>\n"_s;
    QTest::newRow("hash and carriage return") << u"#\r"_s << u"<h1></h1>\n"_s;
    QTest::newRow("carriage return inside a heading") << u"# a\rb"_s << u"<p># a\rb</p>\n"_s;
    QTest::newRow("rule of hyphens") << u"---"_s << rule;
    QTest::newRow("rule of asterisks") << u"***"_s << rule;
    QTest::newRow("rule of underscores") << u"___"_s << rule;
    QTest::newRow("rule with spaces") << u"- - -"_s << rule;
    QTest::newRow("rule of asterisks with spaces") << u"* * *"_s << rule;
    QTest::newRow("rule with more spaces") << u"-  -   -   -"_s << rule;
    QTest::newRow("rule and carriage return") << u"---\r"_s << rule;
    QTest::newRow("rule and two carriage returns") << u"---\r\r"_s << u"<p>---\r\r</p>\n"_s;
    QTest::newRow("mixed rule") << u"-*-"_s << u"<p>-*-</p>\n"_s;
    QTest::newRow("two hyphens") << u"--"_s << u"<p>--</p>\n"_s;
    QTest::newRow("plus signs") << u"+ + +"_s << u"<ul>\n<li>+ +</li>\n</ul>\n"_s;
    QTest::newRow("no underlined title") << u"Titre\n---"_s << u"<p>Titre</p>\n<hr>\n"_s;
    QTest::newRow("equals signs") << u"Titre\n==="_s << u"<p>Titre<br>\n===</p>\n"_s;
    QTest::newRow("two lists") << u"- a\n- b\n1. c"_s
                               << u"<ul>\n<li>a</li>\n<li>b</li>\n</ul>\n<ol>\n<li>c</li>\n</ol>\n"_s;
    QTest::newRow("number and bracket") << u"3) x"_s << u"<ol>\n<li>x</li>\n</ol>\n"_s;
    QTest::newRow("digits of another script") << u"\u0661\U0001D7CE. x"_s << u"<ol>\n<li>x</li>\n</ol>\n"_s;
    QTest::newRow("blank line between items")
        << u"- a\n\n- b"_s << u"<ul>\n<li>a</li>\n</ul>\n<ul>\n<li>b</li>\n</ul>\n"_s;
    QTest::newRow("text after an item") << u"- a\nsuite"_s << u"<ul>\n<li>a</li>\n</ul>\n<p>suite</p>\n"_s;
    QTest::newRow("indented item") << u"- a\n  - b"_s << u"<ul>\n<li>a</li>\n<li>b</li>\n</ul>\n"_s;
    QTest::newRow("hyphen alone") << u"-"_s << u"<p>-</p>\n"_s;
    QTest::newRow("number alone") << u"1."_s << u"<p>1.</p>\n"_s;
    QTest::newRow("hyphen and carriage return") << u"-\r"_s << u"<ul>\n<li></li>\n</ul>\n"_s;
    QTest::newRow("item after a paragraph") << u"a\n* b"_s << u"<p>a</p>\n<ul>\n<li>b</li>\n</ul>\n"_s;
    QTest::newRow("hard break") << u"a\nb"_s << u"<p>a<br>\nb</p>\n"_s;
    QTest::newRow("carriage return in a paragraph") << u"a\rb\r"_s << u"<p>a\rb\r</p>\n"_s;
    QTest::newRow("emphasis ends with its line") << u"*a\nb*"_s << u"<p>*a<br>\nb*</p>\n"_s;
    QTest::newRow("quote") << u"> a\n> b"_s << u"<blockquote>\n<p>a<br>\nb</p>\n</blockquote>\n"_s;
    QTest::newRow("quote in a quote")
        << u"> > a"_s << u"<blockquote>\n<blockquote>\n<p>a</p>\n</blockquote>\n</blockquote>\n"_s;
    QTest::newRow("blank line of a quote")
        << u"> a\n>\n> b"_s << u"<blockquote>\n<p>a</p>\n<p>b</p>\n</blockquote>\n"_s;
    QTest::newRow("no lazy line") << u"> a\nb"_s << u"<blockquote>\n<p>a</p>\n</blockquote>\n<p>b</p>\n"_s;
    QTest::newRow("heading in a quote") << u"> # T"_s << u"<blockquote>\n<h1>T</h1>\n</blockquote>\n"_s;
    QTest::newRow("quote ends a list")
        << u"- a\n> b"_s << u"<ul>\n<li>a</li>\n</ul>\n<blockquote>\n<p>b</p>\n</blockquote>\n"_s;
    QTest::newRow("quotes get shallower")
        << u">> a\n> b"_s
        << u"<blockquote>\n<blockquote>\n<p>a</p>\n</blockquote>\n<p>b</p>\n</blockquote>\n"_s;
    QTest::newRow("code in a quote ends with it")
        << u"> ```\n> a\nb"_s << u"<blockquote>\n<pre><code>a</code></pre>\n</blockquote>\n<p>b</p>\n"_s;
    QTest::newRow("quote mark in the code of a quote")
        << u"> ```\n> > a"_s
        << u"<blockquote>\n<pre><code>> a</code></pre>\n</blockquote>\n"_s.replace(u"> a"_s, u"&gt; a"_s);
    QTest::newRow("code") << u"```texte\n  x < 1\n```"_s << u"<pre><code>  x &lt; 1</code></pre>\n"_s;
    QTest::newRow("closing fence with a word")
        << u"```\n*a*\n  ```fin"_s << u"<pre><code>*a*</code></pre>\n"_s;
    QTest::newRow("fence left open") << u"```\na\n\nb"_s << u"<pre><code>a\n\nb</code></pre>\n"_s;
    QTest::newRow("empty code") << u"```\n```"_s << u"<pre><code></code></pre>\n"_s;
    QTest::newRow("code of one blank line") << u"```\n\n```"_s << u"<pre><code></code></pre>\n"_s;
    QTest::newRow("code of two blank lines") << u"```\n\n\n```"_s << u"<pre><code>\n</code></pre>\n"_s;
    QTest::newRow("back-quote in code") << u"```\na`b\n```"_s << u"<pre><code>a`b</code></pre>\n"_s;
    QTest::newRow("code ends a paragraph") << u"a\n```"_s << u"<p>a</p>\n<pre><code></code></pre>\n"_s;
}

void PLMarkdownTest::blocks()
{
    QFETCH(QString, body);
    QTEST(PLMarkdown::blocksHTMLFromLines(body.split(u'\n')), "html");
    QCOMPARE(PLMarkdown::blocksHTMLFromLines({}), u""_s);
}

void PLMarkdownTest::linesMayHoldLineEndsOfTheirOwn_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("html");
    QTest::newRow("rule") << u"---\r\n"_s << u"<hr>\n"_s;
    QTest::newRow("heading") << u"# T #\r\n"_s << u"<h1>T</h1>\n"_s;
    QTest::newRow("item") << u"- a\n"_s << u"<ul>\n<li>a</li>\n</ul>\n"_s;
    QTest::newRow("item of two lines") << u"- a\nb"_s << u"<p>- a\nb</p>\n"_s;
    QTest::newRow("item ending in two line ends") << u"- a\n\n"_s << u"<p>- a\n\n</p>\n"_s;
}

void PLMarkdownTest::linesMayHoldLineEndsOfTheirOwn()
{
    QFETCH(QString, line);
    QTEST(PLMarkdown::blocksHTMLFromLines({line}), "html");
}

void PLMarkdownTest::pages_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("html");
    QTest::newRow("tags only")
        << u"---\ntags: a, b\n---\n"_s
        << u"<p class=\"tags\"><span class=\"tag\">a</span><span class=\"tag\">b</span></p>\n"_s;
    QTest::newRow("empty pieces")
        << u"---\ntags: a,, b ,,\n---\nT"_s
        << u"<p class=\"tags\"><span class=\"tag\">a</span><span class=\"tag\">b</span>"
           u"</p>\n<p>T</p>\n"_s;
    QTest::newRow("twice the same tag") << u"---\ntags: a, a\n---\n"_s
                                        << u"<p class=\"tags\"><span class=\"tag\">a</span>"
                                           u"<span class=\"tag\">a</span></p>\n"_s;
    QTest::newRow("tag escaped") << u"---\ntags: <x>\n---\n"_s
                                 << u"<p class=\"tags\"><span class=\"tag\">&lt;x&gt;</span></p>\n"_s;
    QTest::newRow("only commas") << u"---\ntags: , ,\n---\n"_s << u"<p class=\"tags\"></p>\n"_s;
    QTest::newRow("other fields are not shown") << u"---\ntype: x\ntags:\n---\n\nA"_s << u"<p>A</p>\n"_s;
    QTest::newRow("front matter, empty") << u"---\n---\n\nA"_s << u"<p>A</p>\n"_s;
    QTest::newRow("front matter to the end")
        << u"---\ntags: a\n---"_s << u"<p class=\"tags\"><span class=\"tag\">a</span></p>\n"_s;
    QTest::newRow("front matter, blank lines after it")
        << u"---\na: 1\n---\n\n\n```\n"_s << u"<pre><code></code></pre>\n"_s;
    QTest::newRow("front matter with carriage returns")
        << u"---\r\ntags: a\r\n---\r\n\r\nb\r\n"_s
        << u"<p class=\"tags\"><span class=\"tag\">a</span></p>\n<p>b</p>\n"_s;
    QTest::newRow("front matter, then carriage returns")
        << u"---\ntags: a\n---\n\r\r\nb"_s
        << u"<p class=\"tags\"><span class=\"tag\">a</span></p>\n<p>\r<br>\nb</p>\n"_s;
    QTest::newRow("longer fence inside")
        << u"---\ntags: a\n----\n---\nb"_s
        << u"<p class=\"tags\"><span class=\"tag\">a</span></p>\n<p>b</p>\n"_s;
    QTest::newRow("two carriage returns") << u"a\r\r\nb\r"_s << u"<p>a\r<br>\nb\r</p>\n"_s;
    QTest::newRow("front matter never closed") << u"---\na: b"_s << u"<hr>\n<p>a: b</p>\n"_s;
    QTest::newRow("carriage returns and line feeds") << u"a\r\n\r\nb\r\n"_s << u"<p>a</p>\n<p>b</p>\n"_s;
}

void PLMarkdownTest::pages()
{
    QFETCH(QString, text);
    QTEST(PLMarkdown::HTMLFromMarkdown(text), "html");
}

void PLMarkdownTest::pageWithNothingToShowHasAPlaceholder_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("missing") << QString();
    QTest::newRow("empty") << u""_s;
    QTest::newRow("blank lines") << u" \n\n\t\n"_s;
    QTest::newRow("front matter without tags") << u"---\ntype: x\n---\n"_s;
    QTest::newRow("front matter with empty tags") << u"---\ntags:\n---\n"_s;
}

void PLMarkdownTest::pageWithNothingToShowHasAPlaceholder()
{
    QFETCH(QString, text);
    QCOMPARE(PLMarkdown::HTMLFromMarkdown(text),
             u"<p class=\"vide\">L'aperçu de votre texte apparaîtra ici.</p>"_s);
    useLanguage(u"en"_s);
    QCOMPARE(PLMarkdown::HTMLFromMarkdown(text),
             u"<p class=\"vide\">A preview of your text will appear here.</p>"_s);
}

void PLMarkdownTest::documentWrapsTheFragment()
{
    const QString document = PLMarkdown::pageWithBodyHTML(u"<p>%1 %@</p>"_s);
    QVERIFY(document.startsWith(
        u"<!DOCTYPE html>\n<html lang=\"fr\"><head><meta charset=\"utf-8\"><style>html {"_s));
    QVERIFY(
        document.endsWith(u"</style></head><body><div id=\"contenu\"><p>%1 %@</p></div></body></html>"_s));
    QVERIFY(PLMarkdown::pageWithBodyHTML(QString()).endsWith(u"<div id=\"contenu\"></div></body></html>"_s));
}

void PLMarkdownTest::documentSpeaksEnglish()
{
    useLanguage(u"en"_s);
    QVERIFY(PLMarkdown::pageWithBodyHTML(u""_s).startsWith(u"<!DOCTYPE html>\n<html lang=\"en\">"_s));
}

void PLMarkdownTest::styleSheetIsOneLineOf1401Characters()
{
    const QString document = PLMarkdown::pageWithBodyHTML(u""_s);
    const qsizetype start = document.indexOf(u"<style>"_s) + 7;
    const QString style = document.sliced(start, document.indexOf(u"</style>"_s) - start);
    QCOMPARE(style.size(), 1401);
    QVERIFY(!style.contains(u'\n'));
    QVERIFY(style.contains(u"hr:after { content: '\\2766'; color: #9e3434; font-size: 1.2em; }ul, ol {"_s));
    QVERIFY(style.endsWith(
        u".vide { color: #b0a48f; font-style: italic; text-align: center; margin-top: 4em; }"_s));
}

void PLMarkdownTest::wordCounts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::newRow("missing") << QString() << 0;
    QTest::newRow("heading") << u"# Titre\n\nIl était une fois."_s << 5;
    QTest::newRow("front matter only") << u"---\ntags: a, b\n---\n"_s << 0;
    QTest::newRow("elision") << u"l'aperçu"_s << 1;
    QTest::newRow("elision, curved") << u"l’aperçu"_s << 1;
    QTest::newRow("marks are no words") << u"# * - > ` ** ~~"_s << 0;
    QTest::newRow("emphasised word") << u"**mot**"_s << 1;
    QTest::newRow("words of a target count") << u"[a](b/c)"_s << 3;
    QTest::newRow("numbers count") << u"3,14 et 1.000"_s << 3;
    QTest::newRow("hyphen parts words") << u"peut-être"_s << 2;
    QTest::newRow("narrow no-break space joins words") << u"quoi\u202F?"_s << 1;
    QTest::newRow("Chinese by dictionary") << u"中文小说"_s << 2;
    QTest::newRow("Thai by dictionary") << u"ภาษาไทย"_s << 2;
}

void PLMarkdownTest::wordCounts()
{
    QFETCH(QString, text);
    QFETCH(int, count);
    QCOMPARE(PLMarkdown::wordCountOfMarkdown(text), count);
}

void PLMarkdownTest::deepQuotesNeedNoStack()
{
    const qsizetype depth = 1 << 20;
    const QString html = PLMarkdown::HTMLFromMarkdown(QString(depth, u'>'));
    QCOMPARE(html.size(), depth * 27);
    QVERIFY(html.startsWith(u"<blockquote>\n<blockquote>\n"_s));
    QVERIFY(html.endsWith(u"</blockquote>\n</blockquote>\n"_s));
    QCOMPARE(html.count(u"</blockquote>\n"_s), depth);
}

void PLMarkdownTest::everyShapeRendersWhole_data()
{
    QTest::addColumn<QString>("shape");
    for (const char *shape :
         {"[", "[[", "![", "[a](", "[a](b", "*a ",     "**a ", "***a ", "__a ", "_a ",       "~~a ",
          "`", "*",  "_",  "~",    "#",     "- - - x", "> > ", "```\n", "> \n", "*a **b _c "})
        QTest::newRow(shape) << QString::fromLatin1(shape);
}

/// Rendered by the rules as they are written, one of these takes minutes.
void PLMarkdownTest::everyShapeRendersWhole()
{
    QFETCH(QString, shape);
    const QString body = shape.repeated((1 << 20) / shape.size());
    QVERIFY(PLMarkdown::HTMLFromMarkdown(body + u"\n\nfin"_s).contains(u"fin"_s));
    QVERIFY(PLMarkdown::inlineHTML(body + u"fin"_s).endsWith(u"fin"_s));
}

QTEST_GUILESS_MAIN(PLMarkdownTest)
#include "PLMarkdownTest.moc"
