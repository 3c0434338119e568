// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <memory>

namespace tavrin {

class DatafileDocument;
class EditorWindowController;

/// An editor window as the application sees it.
class DatafileWindow
{
public:
    DatafileWindow() = default;
    DatafileWindow(const DatafileWindow &) = delete;
    DatafileWindow &operator=(const DatafileWindow &) = delete;
    virtual ~DatafileWindow() = default;

    virtual EditorWindowController &controller() = 0;
    virtual void bringToFront() = 0;
};

/// Who makes editor windows: the ui, or a test.
class DatafileWindowFactory
{
public:
    DatafileWindowFactory() = default;
    DatafileWindowFactory(const DatafileWindowFactory &) = delete;
    DatafileWindowFactory &operator=(const DatafileWindowFactory &) = delete;
    virtual ~DatafileWindowFactory() = default;

    /// A window on the document, prepared and shown. `firstRecord`: the record to show, if it is there; empty
    /// leaves the choice to the datafile's settings. The document outlives the window.
    virtual std::unique_ptr<DatafileWindow> makeWindow(DatafileDocument &document,
                                                       const QString &firstRecord) = 0;
};

} // namespace tavrin
