// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

#include <vector>

//! The most recently opened drawings. GUI thread.
class FXSDK_API CFxRecentFileList
{
public:
    CFxRecentFileList() = default;
    virtual ~CFxRecentFileList();

    //! Returns the recent documents, most recent first, without duplicates. Modules access each of these
    //! files, so a host temporarily leaves out those on a disk or server that does not respond. Modules call
    //! this several times in a row. They are not notified of changes of the list: the browser follows
    //! with the next CFxDocumentManagerReactor::DocumentCreated().
    //! \param paths cleared first; receives full paths exactly as they were opened
    virtual void GetPaths(std::vector<CFxString> &paths) const = 0; // [gui-thread]

    CFxRecentFileList(const CFxRecentFileList &) = delete;
    CFxRecentFileList &operator=(const CFxRecentFileList &) = delete;
};
