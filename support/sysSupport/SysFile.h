#pragma once

#include "QdxObject.h"
#include "QdxString.h"

/// Files and file names, as 8-bit strings in the ANSI code page. Both '\' and '/' separate directories; what
/// names say by themselves goes by the rules of `fileNames`. Nothing here raises but allocation failure.
class SysFile : public QdxObject
{
public:
    /// True for a file, false for a directory and for a name that leads nowhere. A relative name counts from
    /// the current directory.
    [[nodiscard]] static bool exists(const QdxString& name);
    [[nodiscard]] static bool exists(const wchar_t* name);
    /// False when there was nothing to delete or Windows refused.
    static bool deleteFile(const QdxString& name);

    /// "c:\out" of "c:\out\a.doc"; "c:\" of "c:\a.doc"; "c:" of "c:a.doc"; empty for a bare name.
    [[nodiscard]] static QdxString getDir(const QdxString& name);
    /// The name without its directory part: "a.doc" of "c:\out\a.doc".
    [[nodiscard]] static QdxString stripDir(const QdxString& name);
    /// From the last dot of the bare name on, dot included: ".doc" of "c:\out.old\a.b.doc". Empty without a
    /// dot; a lone dot at the end is an extension of its own (".").
    [[nodiscard]] static QdxString getExtension(const QdxString& name);
    /// `dir` and `name` with exactly one separator between them; an empty `dir` gives the name alone.
    [[nodiscard]] static QdxString appendToDir(const QdxString& dir, const QdxString& name);

    /// "c:\inst\pix\a.gif" of the bare name of a picture; empty for any other name.
    [[nodiscard]] static QdxString installedPicture(const QdxString& installDir, const QdxString& name);

    /// An address and no path: a scheme of two or more letters in front of a colon (one letter is a drive),
    /// or a name that starts with "www.", in any case.
    [[nodiscard]] static bool isHyperLink(const QdxString& name);
};
