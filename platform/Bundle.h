// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// Where the application's resources are: in a build tree beside the executable, installed in ../share/provender from
// it. There is one bundle, the main one; a test can point it at resources of its own.
class Bundle {
public:
    [[nodiscard]] static Bundle &mainBundle();

    // The full path of the resource `name`.`type` in the folder `directory`, or an empty text when there is no such
    // resource: the name is empty or holds "/" or NUL, or nothing of that name is there. Asked of the disk at every
    // call, so a file that turns up later is found later.
    [[nodiscard]] QString pathForResource(const QString &name, const QString &type, const QString &directory) const;

    // Looks for resources in this folder instead; an empty text goes back to the folder near the executable.
    void setResourcePath(const QString &folder);

private:
    Bundle() = default;

    QString resourcepath;
};
