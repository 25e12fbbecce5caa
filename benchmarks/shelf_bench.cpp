// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What a shelf of 200 notebooks, seen through a window of 1400 x 1000 points, costs to paint whole and to
// scroll by a turn of the wheel; beside a view that puts plain pictures of the same sizes, as many, on a
// plain ground. By covers and by spines, at scale 1 and 2: the scale is set before the application starts, so
// the program runs itself once for each.

#include "library/PLShelfView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int bookCount = 200;
constexpr QSize windowSize(1400, 1000);
constexpr int wheelTurn = 60; // points
constexpr int rounds = 40;
constexpr double wholeLimit = 8; // milliseconds
constexpr double scrollLimit = 4;

QImage pictureOfBook(int index)
{
    QImage picture(index % 2 ? QSize(360, 240) : QSize(240, 360), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb((x * index) % 256, (y + index) % 256, (x + y) % 256));
    }
    return picture;
}

/// Every second book has a picture for its cover, every seventh is missing.
std::vector<PLShelfBook> manyBooks()
{
    std::vector<PLShelfBook> books;
    for (int index = 0; index < bookCount; ++index) {
        PLShelfBook book;
        book.title = u"Le carnet des jours de pluie, numéro %1"_s.arg(index);
        book.url = QUrl::fromLocalFile(u"/home/anne/"_s + book.title);
        book.author = u"Anne Duval"_s;
        book.available = index % 7 != 3;
        if (index % 2 == 0)
            book.cover = pictureOfBook(index + 1);
        books.push_back(book);
    }
    return books;
}

/// The yardstick: what no drawing of a shelf can undercut by much.
class PlainView final : public QWidget
{
public:
    explicit PlainView(const PLShelfView &shelf)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        resize(shelf.size());
        for (int index = 0; index < bookCount; ++index) {
            const QRect rect = shelf.rectForBookAtIndex(index);
            QPixmap picture(rect.size() * devicePixelRatio());
            picture.setDevicePixelRatio(devicePixelRatio());
            picture.fill(QColor::fromHsv(index * 6 % 360, 120, 120));
            m_books.push_back({rect, picture});
        }
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.fillRect(event->rect(), QColor(92, 56, 32));
        for (const auto &[rect, picture] : m_books) {
            if (rect.intersects(event->rect()))
                painter.drawPixmap(rect.topLeft(), picture);
        }
    }

private:
    std::vector<std::pair<QRect, QPixmap>> m_books;
};

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

/// Paints what has to be painted, now.
void paintPending(QWidget &window)
{
    QEvent request(QEvent::UpdateRequest);
    QApplication::sendEvent(&window, &request);
}

double timeOfPainting(QScrollArea &area)
{
    QElapsedTimer timer;
    timer.start();
    area.widget()->update();
    paintPending(area);
    return milliseconds(timer);
}

double timeOfScrolling(QScrollArea &area, int value)
{
    QElapsedTimer timer;
    timer.start();
    area.verticalScrollBar()->setValue(value);
    paintPending(area);
    return milliseconds(timer);
}

struct Times
{
    double first;
    double whole;
    double scroll;
};

Times measure(QScrollArea &area)
{
    Times times{.first = timeOfPainting(area), .whole = 0, .scroll = 0};
    std::vector<double> whole;
    std::vector<double> scrolls;
    for (int round = 0; round < rounds; ++round)
        whole.push_back(timeOfPainting(area));
    const int last = area.verticalScrollBar()->maximum();
    for (int value = 0; value <= last;
         value += wheelTurn) // what comes into sight the first time is drawn now
        timeOfScrolling(area, value);
    for (int value = last; value >= 0; value -= wheelTurn)
        scrolls.push_back(timeOfScrolling(area, value));
    times.whole = median(whole);
    times.scroll = median(scrolls);
    return times;
}

std::unique_ptr<QScrollArea> shownArea(QWidget *view)
{
    auto area = std::make_unique<QScrollArea>();
    area->setFrameShape(QFrame::NoFrame);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(view);
    area->resize(windowSize);
    area->show();
    QApplication::processEvents();
    return area;
}

bool compare(bool spineMode)
{
    auto *shelf = new PLShelfView;
    const auto shelfArea = shownArea(shelf);
    shelf->setBooks(manyBooks());
    shelf->setSpineMode(spineMode);
    const Times ours = measure(*shelfArea);
    const auto plainArea = shownArea(new PlainView(*shelf));
    const Times plain = measure(*plainArea);
    std::printf(
        "%-7s scale %.0f | whole %5.2f ms (first time %5.1f), plain pictures %5.2f | wheel turn %5.2f ms, "
        "plain pictures %5.2f\n",
        spineMode ? "spines" : "covers", shelf->devicePixelRatio(), ours.whole, ours.first, plain.whole,
        ours.scroll, plain.scroll);
    return ours.whole <= wholeLimit && ours.scroll <= scrollLimit;
}

bool runAtScale(const QString &scale)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_SCALE_FACTOR"_s, scale);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(), {u"--here"_s});
    return process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(u"--here"_s)) {
        const bool areCoversQuick = compare(false);
        return compare(true) && areCoversQuick ? 0 : 1;
    }
    const bool isQuick = runAtScale(u"1"_s);
    return runAtScale(u"2"_s) && isQuick ? 0 : 1;
}
