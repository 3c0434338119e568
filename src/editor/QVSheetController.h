// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace tavrin {

/// One modal question: what it shows, what is filled in, whether it may be accepted.
///
/// It knows no widget: a view shows it, a test fills it in. It is answered once; `closed` comes before
/// `finished`, so that the answer's handler may begin the next sheet.
class QVSheetController : public QObject
{
    Q_OBJECT

public:
    static constexpr int FirstButton = 1000; ///< The default: accepting.
    static constexpr int SecondButton = 1001;
    static constexpr int ThirdButton = 1002;

    QVSheetController() = default;

    virtual bool isAcceptable() const { return true; }

    /// Ends the sheet with FirstButton; does nothing unless isAcceptable().
    virtual void accept();

    /// Ends the sheet with the code of its cancelling answer.
    void cancel() { finish(cancelCode()); }

    /// Ends the sheet with a return code; further answers are ignored.
    void finish(int returnCode);

    bool isFinished() const { return g_finished; }

Q_SIGNALS:
    /// What is shown or filled in changed; ask again whether the sheet is acceptable.
    void changed();
    void closed();
    void finished(int returnCode);

protected:
    virtual int cancelCode() const { return SecondButton; }

private:
    bool g_finished = false;
};

} // namespace tavrin
