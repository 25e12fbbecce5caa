// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLMarkdown.h"
#include "markdown/PLRandomMarkdown.h"

#include <QSet>
#include <QTest>

#include <libxml/HTMLparser.h>

#include <memory>

using namespace Qt::StringLiterals;

/// Whatever a page holds, a real HTML parser finds the dialect's elements and attributes in it, and no
/// others.
class PLMarkdownHostileTextTest final : public QObject
{
    Q_OBJECT

private:
    quint64 m_seed = 0;

private Q_SLOTS:
    void initTestCase();
    void hostileText_data();
    void hostileText();
    void linksInLinksOpenNoStrangeElement_data();
    void linksInLinksOpenNoStrangeElement();
    void randomPagesOpenNoStrangeElement();
    void randomPagesWithoutTargetsHaveNoStrangeAttribute();
    void parserSeesWhatIsNotEscaped();
};

namespace {

const QSet<QString> knownElements = {
    u"html"_s,   u"body"_s, u"p"_s,   u"br"_s, u"h1"_s,   u"h2"_s,  u"h3"_s,         u"h4"_s,
    u"h5"_s,     u"h6"_s,   u"hr"_s,  u"ul"_s, u"ol"_s,   u"li"_s,  u"pre"_s,        u"code"_s,
    u"strong"_s, u"em"_s,   u"del"_s, u"a"_s,  u"span"_s, u"img"_s, u"blockquote"_s,
};
const QSet<QString> knownAttributes = {u"p.class"_s, u"span.class"_s, u"a.href"_s, u"img.src"_s,
                                       u"img.alt"_s};

/// What a document holds that is not the dialect's.
struct Strangers
{
    QStringList elements; ///< comments and processing instructions too
    QStringList attributes;
    bool isRead = false;
};

QString name(const xmlChar *utf8)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(utf8));
}

void collectStrangers(const xmlNode *first, Strangers *strangers)
{
    for (const xmlNode *node = first; node; node = node->next) {
        if (node->type == XML_COMMENT_NODE || node->type == XML_PI_NODE)
            strangers->elements.append(u"comment"_s);
        if (node->type != XML_ELEMENT_NODE)
            continue;
        if (!knownElements.contains(name(node->name)))
            strangers->elements.append(name(node->name));
        for (const xmlAttr *attribute = node->properties; attribute; attribute = attribute->next) {
            const QString fullName = name(node->name) + u'.' + name(attribute->name);
            if (!knownAttributes.contains(fullName))
                strangers->attributes.append(fullName);
        }
        collectStrangers(node->children, strangers);
    }
}

Strangers strangersIn(const QString &html)
{
    QByteArray bytes = (u"<p>"_s + html).toUtf8();
    bytes.replace('\0', "\xEF\xBF\xBD"); // as a browser reads it; the parser would stop there
    const int options = HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET |
                        HTML_PARSE_NODEFDTD | XML_PARSE_HUGE;
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        htmlReadMemory(bytes.constData(), int(bytes.size()), nullptr, "UTF-8", options), &xmlFreeDoc);
    Strangers found;
    found.isRead = document != nullptr;
    if (document)
        collectStrangers(document->children, &found);
    return found;
}

} // namespace

void PLMarkdownHostileTextTest::initTestCase()
{
    m_seed = std::random_device()();
    qInfo("seed %llu", static_cast<unsigned long long>(m_seed));
}

void PLMarkdownHostileTextTest::hostileText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("script") << u"<script>alert(1)</script>"_s;
    QTest::newRow("script in code") << u"`<script>`\n```\n<script>\n```"_s;
    QTest::newRow("attribute in a target") << u"[a](x\"onclick=\"y\"b)"_s;
    QTest::newRow("attribute in an image") << u"![a\" onerror=\"b](x\"onerror=y)"_s;
    QTest::newRow("wiki link with an attribute") << u"[[a\" onclick=\"b]]"_s;
    QTest::newRow("heading") << u"# <h1 onclick=x>"_s;
    QTest::newRow("tag") << u"---\ntags: <b>, \"x\" onclick=y\n---\n"_s;
    QTest::newRow("comment") << u"<!-- a -->\n<?xml a?>\n<![CDATA[ a ]]>"_s;
    QTest::newRow("entity") << u"&lt;script&gt; &#60;b&#62; &"_s;
    QTest::newRow("NUL") << QStringView(u"a\0<b\0>\n**\0**", 12).toString();
    QTest::newRow("broken pairs") << QString(QChar(0xD800)) + u"<b>"_s + QChar(0xDC00) + u"**a**"_s +
                                         QChar(0xD83D);
    QTest::newRow("line separators") << u"a\u2028<b>\u2029**c**\u0085[d](e\u2028f)"_s;
    QTest::newRow("carriage returns") << u"a\r<b>\r\r\n[c](d\re)"_s;
}

void PLMarkdownHostileTextTest::hostileText()
{
    QFETCH(QString, text);
    const Strangers found = strangersIn(PLMarkdown::HTMLFromMarkdown(text));
    QVERIFY(found.isRead);
    QCOMPARE(found.elements, QStringList());
    QCOMPARE(found.attributes, QStringList());
}

void PLMarkdownHostileTextTest::linksInLinksOpenNoStrangeElement_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("image in a link") << u"[![a](b)](c)"_s;
    QTest::newRow("link in an image's text") << u"![[a](b)](c)"_s;
    QTest::newRow("link in an image's text, with a name") << u"![[a](b)](onerror=c)"_s;
    QTest::newRow("wiki link in a target") << u"[a](b[[c]]d)"_s;
    QTest::newRow("link in a target") << u"[a](b[c](d))"_s;
    QTest::newRow("tags in a target") << u"![[<b>](<script>)](</script>)"_s;
}

void PLMarkdownHostileTextTest::linksInLinksOpenNoStrangeElement()
{
    QFETCH(QString, text);
    const Strangers found = strangersIn(PLMarkdown::HTMLFromMarkdown(text));
    QVERIFY(found.isRead);
    QCOMPARE(found.elements, QStringList());
}

void PLMarkdownHostileTextTest::randomPagesOpenNoStrangeElement()
{
    PLRandomMarkdown random(m_seed);
    for (int round = 0; round < 5000; ++round) {
        const QString page = random.page(round % 20);
        const Strangers found = strangersIn(PLMarkdown::HTMLFromMarkdown(page));
        QVERIFY(found.isRead);
        QVERIFY2(found.elements.isEmpty(), qPrintable(found.elements.join(u' ') + u" in "_s + page));
    }
}

void PLMarkdownHostileTextTest::randomPagesWithoutTargetsHaveNoStrangeAttribute()
{
    PLRandomMarkdown random(m_seed + 1);
    for (int round = 0; round < 5000; ++round) {
        const QString page = random.page(round % 20).replace(u"]("_s, u"] ("_s);
        const Strangers found = strangersIn(PLMarkdown::HTMLFromMarkdown(page));
        QVERIFY2(found.attributes.isEmpty(), qPrintable(found.attributes.join(u' ') + u" in "_s + page));
    }
}

void PLMarkdownHostileTextTest::parserSeesWhatIsNotEscaped()
{
    const Strangers found = strangersIn(u"<p>a</p><script>b</script><p onclick=\"c\">d</p><!-- e -->"_s);
    QCOMPARE(found.elements, QStringList({u"script"_s, u"comment"_s}));
    QCOMPARE(found.attributes, QStringList({u"p.onclick"_s}));
}

QTEST_GUILESS_MAIN(PLMarkdownHostileTextTest)
#include "PLMarkdownHostileTextTest.moc"
