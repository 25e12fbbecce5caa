// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

class QUrl;

/// True if the preview of a page in the folder `baseURL` may show this picture: an existing file with the
/// extension of a picture in the page's folder, or in the folder above, its notebook, or anywhere below.
/// Links on the disk are followed before the answer.
bool PLPreviewMayShowImage(const QUrl &image, const QUrl &baseURL);
