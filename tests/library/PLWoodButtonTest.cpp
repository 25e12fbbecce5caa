// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLWoodButton.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

enum class State { Plain, Prominent, Pressed, Checked };

/// As the accessibility guidelines for the web define it, from 0 for black to 1 for white.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

void prepare(PLWoodButton &button, State state)
{
    button.resize(150, 32);
    button.setProminent(state == State::Prominent);
    button.setDown(state == State::Pressed);
    button.setCheckable(state == State::Checked);
    button.setChecked(state == State::Checked);
}

/// The button on a dark wooden ground.
QImage picture(PLWoodButton &button, double scale = 1, const QPoint &place = QPoint())
{
    const QSize size = (QSizeF(button.width() + place.x(), button.height() + place.y()) * scale).toSize();
    QImage image(size, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(0xFF503018);
    button.render(&image, place, {}, QWidget::DrawChildren);
    return image;
}

void addStates()
{
    QTest::addColumn<State>("state");
    QTest::newRow("plain") << State::Plain;
    QTest::newRow("prominent") << State::Prominent;
    QTest::newRow("pressed") << State::Pressed;
    QTest::newRow("checked") << State::Checked;
}

} // namespace

class PLWoodButtonTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theDesktopsColorsDoNotMatter_data() { addStates(); }
    void theDesktopsColorsDoNotMatter();
    void theTitleIsReadable_data() { addStates(); }
    void theTitleIsReadable();
    void theStatesCanBeToldApart();
    void edgesAreSharpAtEveryScale_data();
    void edgesAreSharpAtEveryScale();
    void segmentsMeetAndAreRoundOutside();
    void spaceAndReturnPress();
};

void PLWoodButtonTest::theDesktopsColorsDoNotMatter()
{
    QFETCH(State, state);
    const QPalette before = QApplication::palette();
    QList<QImage> pictures;
    for (const QColor &color : {QColor(Qt::white), QColor(Qt::black), QColor(Qt::magenta)}) {
        QApplication::setPalette(QPalette(color));
        PLWoodButton button(u"Ouvrir"_s);
        prepare(button, state);
        pictures.append(picture(button));
    }
    QApplication::setPalette(before);
    QCOMPARE(pictures[1], pictures[0]);
    QCOMPARE(pictures[2], pictures[0]);
}

/// The contrast that the guidelines ask for.
void PLWoodButtonTest::theTitleIsReadable()
{
    QFETCH(State, state);
    PLWoodButton titled(u"MMMMMM"_s);
    PLWoodButton untitled(QString{});
    prepare(titled, state);
    prepare(untitled, state);
    const QImage with = picture(titled);
    const QImage without = picture(untitled);
    double contrast = 1;
    for (int y = 10; y < 22; ++y) {
        for (int x = 20; x < 130; ++x) {
            const double title = luminance(with.pixelColor(x, y)) + 0.05;
            const double ground = luminance(without.pixelColor(x, y)) + 0.05;
            contrast = std::max({contrast, title / ground, ground / title});
        }
    }
    QVERIFY2(contrast >= 7, qPrintable(QString::number(contrast)));
}

void PLWoodButtonTest::theStatesCanBeToldApart()
{
    QList<QImage> pictures;
    for (const State state : {State::Plain, State::Prominent, State::Pressed, State::Checked}) {
        PLWoodButton button(u"Ouvrir"_s);
        prepare(button, state);
        pictures.append(picture(button));
        button.setEnabled(false);
        if (state != State::Pressed) // no disabled button is
            pictures.append(picture(button));
    }
    QWidget window;
    PLWoodButton focused(u"Ouvrir"_s, &window);
    prepare(focused, State::Plain);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    focused.setFocus();
    pictures.append(picture(focused));
    for (qsizetype left = 0; left < pictures.size(); ++left) {
        for (qsizetype right = left + 1; right < pictures.size(); ++right)
            QVERIFY(pictures[left] != pictures[right]);
    }
}

void PLWoodButtonTest::edgesAreSharpAtEveryScale_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0})
        QTest::addRow("%g", scale) << scale;
}

/// Down through the middle the ground turns into the edge's colour from one pixel to the next.
void PLWoodButtonTest::edgesAreSharpAtEveryScale()
{
    QFETCH(double, scale);
    constexpr QRgb ground = 0xFF503018;
    constexpr QRgb edge = 0xFF2A180C;
    PLWoodButton button(QString{});
    prepare(button, State::Plain);
    const QImage image = picture(button, scale, {3, 5});
    const int x = image.width() / 2;
    int y = 0;
    while (y < image.height() && image.pixel(x, y) == ground)
        ++y;
    QCOMPARE(y, qRound((5 + 2) * scale));
    for (int line = 0; line < qRound(scale); ++line)
        QCOMPARE(image.pixel(x, y + line), edge);
    QVERIFY(image.pixel(x, y + qRound(scale)) != edge);
    int bottom = image.height() - 1;
    while (image.pixel(x, bottom) == ground)
        --bottom;
    QCOMPARE(image.pixel(x, bottom), edge);
}

void PLWoodButtonTest::segmentsMeetAndAreRoundOutside()
{
    for (const auto ends : {PLWoodButton::Ends::Left, PLWoodButton::Ends::Right}) {
        const bool isLeft = ends == PLWoodButton::Ends::Left;
        PLWoodButton segment(QString{});
        prepare(segment, State::Plain);
        segment.setEnds(ends);
        const QImage image = picture(segment);
        const int inside = isLeft ? image.width() - 1 : 0;
        const int outside = isLeft ? 2 : image.width() - 3;
        for (const int y : {3, 16, 28}) {
            QVERIFY(image.pixel(inside, y) == 0xFF2A180C);
            QVERIFY(image.pixel(75, y) != 0xFF503018);
        }
        for (const int y : {2, 29})
            QVERIFY(image.pixel(inside, y) != 0xFF503018);
        QVERIFY(image.pixel(outside, 16) == 0xFF2A180C);
        QVERIFY(image.pixel(outside, 2) == 0xFF503018);
        QVERIFY(image.pixel(outside, 29) == 0xFF503018);
    }
}

void PLWoodButtonTest::spaceAndReturnPress()
{
    PLWoodButton button(u"Ouvrir"_s);
    QSignalSpy clicked(&button, &QPushButton::clicked);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter);
    QCOMPARE(clicked.count(), 3);
    button.setEnabled(false);
    QTest::keyClick(&button, Qt::Key_Return);
    QCOMPARE(clicked.count(), 3);
}

QTEST_MAIN(PLWoodButtonTest)
#include "PLWoodButtonTest.moc"
