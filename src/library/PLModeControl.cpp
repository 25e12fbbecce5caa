// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLModeControl.h"

#include "i18n/PLLocalization.h"
#include "library/PLWoodButton.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QRect firstFrame(4, 0, 100, 25);
constexpr QRect secondFrame(104, 0, 122, 25);

} // namespace

PLModeControl::PLModeControl(QWidget *parent)
    : QWidget(parent)
    , m_segments{new PLWoodButton(PLLocalizedString(u"De face"_s), this),
                 new PLWoodButton(PLLocalizedString(u"Sur la tranche"_s), this)}
{
    m_segments[0]->setGeometry(firstFrame);
    m_segments[0]->setEnds(PLWoodButton::Ends::Left);
    m_segments[1]->setGeometry(secondFrame);
    m_segments[1]->setEnds(PLWoodButton::Ends::Right);
    for (int index = 0; index < 2; ++index) {
        segment(index)->setCheckable(true);
        segment(index)->setAutoExclusive(true);
        segment(index)->setAutoDefault(false); // Return is the open button's
        segment(index)->setFocusPolicy(Qt::NoFocus);
        connect(segment(index), &QAbstractButton::clicked, this,
                [this, index] { Q_EMIT segmentSelected(index); });
        // The Tab key comes to the selected one, the arrow keys go on from there.
        connect(segment(index), &QAbstractButton::toggled, this, [this, index](bool isSelected) {
            segment(index)->setFocusPolicy(isSelected ? Qt::TabFocus : Qt::NoFocus);
        });
    }
    setSelectedSegment(0);
}

int PLModeControl::selectedSegment() const
{
    return m_segments[1]->isChecked() ? 1 : 0;
}

void PLModeControl::setSelectedSegment(int index)
{
    segment(index)->setChecked(true);
}
