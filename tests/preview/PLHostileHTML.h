// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What a page could hold if the renderer let it through. {server} is the address of a server that must never
/// hear of it, {folder} the folder of a notebook with a secret outside of it.
struct PLHostileHTML
{
    const char *name;
    const char16_t *html;
};

inline constexpr PLHostileHTML PLHostilePayloads[] = {
    {"image", u"<img src='http://{server}/a.png'>"},
    {"image without a scheme", u"<img src='//{server}/a.png'>"},
    {"image set", u"<img srcset='http://{server}/a.png 1x, http://{server}/b.png 2x'>"},
    {"picture",
     u"<picture><source srcset='http://{server}/a.png'><img src='http://{server}/b.png'></picture>"},
    {"image that fails with a script",
     u"<img src='x' onerror=\"document.title='RUN'; new Image().src='http://{server}/a'\">"},
    {"svg image that fails",
     u"<svg><image href='http://{server}/a.svg' onerror=\"document.title='RUN'\"/></svg>"},
    {"svg with a script",
     u"<svg onload=\"document.title='RUN'\"><script>document.title='RUN'</script></svg>"},
    {"svg use", u"<svg><use href='http://{server}/a.svg#b'/></svg>"},
    {"script", u"<script>document.title='RUN'; fetch('http://{server}/a')</script>"},
    {"script from afar", u"<script src='http://{server}/a.js'></script>"},
    {"module", u"<script type='module'>document.title='RUN'; import('http://{server}/a.js')</script>"},
    {"refresh", u"<meta http-equiv='refresh' content='0;url=http://{server}/a'>"},
    {"refresh to a script", u"<meta http-equiv='refresh' content=\"0;url=javascript:document.title='RUN'\">"},
    {"refresh to data", u"<meta http-equiv='refresh' content='0;url=data:text/html,<title>RUN</title>'>"},
    {"refresh to a file", u"<meta http-equiv='refresh' content='0;url=file://{folder}/../secret.txt'>"},
    {"frame", u"<iframe src='http://{server}/a'></iframe>"},
    {"frame of a file", u"<iframe src='file://{folder}/../secret.txt'></iframe>"},
    {"frame of data", u"<iframe src=\"data:text/html,<img src='http://{server}/a'>\"></iframe>"},
    {"frame of text", u"<iframe srcdoc=\"<img "
                      u"src='http://{server}/a'><script>parent.document.title='RUN'</script>\"></iframe>"},
    {"frame of a script", u"<iframe src=\"javascript:parent.document.title='RUN'\"></iframe>"},
    {"object", u"<object data='http://{server}/a.pdf' type='application/pdf'></object>"},
    {"object of a file", u"<object data='file://{folder}/../secret.txt' type='text/plain'></object>"},
    {"embed", u"<embed src='http://{server}/a.svg' type='image/svg+xml'>"},
    {"style sheet", u"<link rel='stylesheet' href='http://{server}/a.css'>"},
    {"import", u"<style>@import url(http://{server}/a.css);</style>"},
    {"background", u"<p style='background: url(http://{server}/a.png)'>x</p>"},
    {"font", u"<style>@font-face { font-family: f; src: url(http://{server}/a.woff); } p { font-family: f; "
             u"}</style><p>x</p>"},
    {"cursor and list", u"<ul style='list-style-image: url(http://{server}/a.png); cursor: "
                        u"url(http://{server}/b.cur), auto'><li>x</ul>"},
    {"prefetch",
     u"<link rel='prefetch' href='http://{server}/a'><link rel='prerender' href='http://{server}/b'>"},
    {"preload", u"<link rel='preload' as='image' href='http://{server}/a.png'>"},
    {"module preload", u"<link rel='modulepreload' href='http://{server}/a.js'>"},
    {"preconnect",
     u"<link rel='preconnect' href='http://{server}'><link rel='dns-prefetch' href='//{server}'>"},
    {"icon",
     u"<link rel='icon' href='http://{server}/a.ico'><link rel='manifest' href='http://{server}/a.json'>"},
    {"base", u"<base href='http://{server}/'><img src='a.png'>"},
    {"form", u"<form id='f' action='http://{server}/a'><input autofocus onfocus='f.submit()'></form>"},
    {"video",
     u"<video src='http://{server}/a.mp4' poster='http://{server}/a.png' autoplay preload='auto'></video>"},
    {"audio", u"<audio src='http://{server}/a.mp3' autoplay preload='auto'></audio><bgsound "
              u"src='http://{server}/b.wav'>"},
    {"track", u"<video autoplay><source src='http://{server}/a.mp4'><track default "
              u"src='http://{server}/a.vtt'></video>"},
    {"body attributes", u"<body background='http://{server}/a.png' onload=\"document.title='RUN'\">"},
    {"table background",
     u"<table background='http://{server}/a.png'><tr><td background='http://{server}/b.png'>x</table>"},
    {"input image", u"<input type='image' src='http://{server}/a.png'>"},
    {"animation", u"<style>@keyframes k { to { opacity: 0 } } i { animation: k 1ms }</style>"
                  "<i onanimationend=\"document.title='RUN'\">x</i>"},
    {"details", u"<details open ontoggle=\"document.title='RUN'\">x</details>"},
    {"web socket by file", u"<img src='ws://{server}/a'><img src='ftp://{server}/b'>"},
    {"mail by itself", u"<iframe src='mailto:a@b.invalid'></iframe><meta http-equiv='refresh' "
                       u"content='0;url=mailto:a@b.invalid'>"},
};

/// A payload with the server and the folder filled in.
inline QString PLFilledPayload(const QString &html, const QString &server, const QString &folder)
{
    return QString(html)
        .replace(QStringLiteral("{server}"), server)
        .replace(QStringLiteral("{folder}"), folder);
}
