// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/BackgroundWork.h"
#include "base/SharedProgress.h"
#include "sorting/RecordSelection.h"
#include "sorting/RecordTerms.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>

namespace tavrin {

class DatafileDocument;
class SortSheetController;

/// Shows a sort sheet which records would come first, while the choices are made. The records are sorted on
/// another thread as they were when the sheet came up; a newer choice stops the work for an older one.
class SortPreview : public QObject
{
    Q_OBJECT

public:
    SortPreview(const DatafileDocument &document, SortSheetController &sheet);
    ~SortPreview() override;

    static constexpr qsizetype shownCount = 3;

private:
    struct Look;

    void begin();
    void ended();

    QPointer<SortSheetController> g_sheet;
    std::shared_ptr<const RecordTexts> g_texts;
    std::shared_ptr<const CatalogRecords> g_catalog;
    std::shared_ptr<Look> g_look; ///< The one under way.
    bool g_isStale = false;       ///< The choices changed since it began.
    QTimer g_delay;
    BackgroundWork g_work;
};

} // namespace tavrin
