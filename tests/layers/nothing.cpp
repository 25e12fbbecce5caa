// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

/// Does nothing: that it links and loads is what is tested.
int main()
{
    return 0;
}
