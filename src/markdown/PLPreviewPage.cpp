// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "i18n/PLLocalization.h"
#include "markdown/PLMarkdown.h"

using namespace Qt::StringLiterals;

namespace {

/// One line of text: a page of warm paper, the ornament U+2766 in place of a rule.
const QString styleSheet =
    u"html { background: #faf6ea; }"
    u"body { margin: 0; padding: 36px 44px 80px; font: 17px/1.6 Georgia, serif; color: #2b2621; }"
    u"#contenu { max-width: 640px; margin: 0 auto; }"
    u"h1, h2, h3, h4, h5, h6 { line-height: 1.25; margin: 1.4em 0 .6em; }"
    u"h1 { font-size: 1.8em; text-align: center; margin-top: .3em; }"
    u"h2 { font-size: 1.4em; }"
    u" h3 { font-size: 1.2em; }"
    u" h4, h5, h6 { font-size: 1em; }"
    u"p { margin: 0 0 .9em; text-align: justify; -webkit-hyphens: auto; }"
    u"blockquote { margin: 1em 0; padding: .1em 0 .1em 1.2em; border-left: 3px solid #c9b994; color: "
    u"#5a5046; font-style: italic; }"
    u"hr { border: 0; height: 1.4em; margin: 1.4em 0; text-align: center; }"
    u"hr:after { content: '\\2766'; color: #9e3434; font-size: 1.2em; }"
    u"ul, ol { margin: 0 0 .9em; padding-left: 1.6em; }"
    u"code { font: 14px Menlo, Monaco, monospace; background: #efe8d6; padding: 1px 4px; "
    u"border-radius: 3px; }"
    u"pre { background: #efe8d6; padding: 10px 14px; border-radius: 4px; overflow: auto; }"
    u"pre code { background: none; padding: 0; }"
    u"a { color: #385f99; }"
    u".lien { color: #7a5794; border-bottom: 1px dotted #7a5794; }"
    u".tags { margin: 0 0 1.2em; text-align: left; }"
    u".tag { display: inline-block; font: 12px 'Lucida Grande', sans-serif; background: #e8dec7; "
    u"color: #5a5046; padding: 2px 9px; border-radius: 10px; margin-right: 5px; }"
    u"img { max-width: 100%; }"
    u"del { color: #8c8070; }"
    u".vide { color: #b0a48f; font-style: italic; text-align: center; margin-top: 4em; }"_s;

} // namespace

QString PLMarkdown::pageWithBodyHTML(const QString &html)
{
    return u"<!DOCTYPE html>\n<html lang=\""_s + PLLocalization::currentLanguage() +
           u"\"><head><meta charset=\"utf-8\"><style>"_s + styleSheet +
           u"</style></head><body><div id=\"contenu\">"_s + html + u"</div></body></html>"_s;
}
