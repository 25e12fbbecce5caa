// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProxyStyle>

/// The desktop's style, but for the icon of a menu bar's overflow button: Qt 6.4 reads its pictures for
/// it, and opens every plugin for pictures to do so, whenever a menu bar is made. Here it is drawn when it is
/// first seen.
class PLStyle final : public QProxyStyle
{
public:
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
};
