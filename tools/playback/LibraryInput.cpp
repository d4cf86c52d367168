#include "LibraryInput.h"

namespace zemsub::tool {

QString LibraryInput::failure() const
{
    switch (kind) {
    case Kind::Unreadable:
        return facts.failure;
    case Kind::Thrown:
        return session->failure();
    case Kind::Index:
    case Kind::Played:
    case Kind::Refused:
        break;
    }
    return QString();
}

LibraryInput askLibrary(const QString& path)
{
    LibraryInput input;
    input.facts = inspectFile(path);
    if (!input.facts.failure.isEmpty())
        return input;
    input.session = std::make_unique<ManagerSession>(path);
    if (!input.session->failure().isEmpty())
        input.kind = LibraryInput::Kind::Thrown;
    else if (input.session->formatCode() != CodeNone)
        input.kind = LibraryInput::Kind::Played;
    else if (isIndexPath(input.facts))
        input.kind = LibraryInput::Kind::Index;
    else
        input.kind = LibraryInput::Kind::Refused;
    return input;
}

} // namespace zemsub::tool
