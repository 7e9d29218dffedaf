// SPDX-License-Identifier: MIT
#pragma once

#include <CFxCommandContext.h>

namespace sdkhost {

//! The context of a running command; stores its result. GUI thread.
class FXSDK_API CommandContext : public CFxCommandContext
{
public:
    explicit CommandContext(const CFxString &argument);
    ~CommandContext() override;

    CFxString argument() const override { return m_argument; }
    bool isCancelled() const override { return m_cancelled; }

    void cancel() { m_cancelled = true; }
    //! CFxCommand::normalCompletion until setResult() is called.
    int result() const { return m_result; }
    void setResult(int result) { m_result = result; }

private:
    CFxString m_argument;
    bool m_cancelled = false;
    int m_result;
};

} // namespace sdkhost
