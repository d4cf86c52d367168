#ifndef ZEMSUB_TOOL_SUBPATHARRANGEMENT_H
#define ZEMSUB_TOOL_SUBPATHARRANGEMENT_H

#include <QDir>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace zemsub::tool {

// The .sub file as users keep it beside its index: "movie.sub" (or "movie.SUB")
// beside "movie.idx". Empty when there is none.
QString subFileBeside(const QString& indexPath);

// The index reader opens its .sub file by a path relative to the working folder
// (the text from the first "." of the index path, then "sub"). This puts a link
// to the .sub file under that relative path in a temporary folder, and runs the
// reader's look-ups with that folder as the working folder.
class SubPathArrangement
{
public:
    // Nothing is arranged when subFile is empty or formedPath leaves the folder.
    SubPathArrangement(const QString& formedPath, const QString& subFile);

    bool ready() const { return m_ready; }

    // Runs lookUp with the temporary folder as the working folder (as it is when not ready).
    template <typename LookUp>
    auto run(LookUp lookUp) const
    {
        const Visit visit(m_ready ? m_folder->path() : QString());
        return lookUp();
    }

private:
    // Changes the working folder for its lifetime (nothing for an empty folder).
    class Visit
    {
    public:
        explicit Visit(const QString& folder);
        ~Visit();
        Visit(const Visit&) = delete;
        Visit& operator=(const Visit&) = delete;

    private:
        QString m_previous;
    };

    std::unique_ptr<QTemporaryDir> m_folder;
    bool m_ready = false;
};

} // namespace zemsub::tool

#endif
