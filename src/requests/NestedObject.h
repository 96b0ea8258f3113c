#pragma once

#include <string>

namespace vantix {

/// A member that holds nested JSON, either as an object or as a text that holds one. `Document` is that of either JSON
/// library; the object is valid as long as this and the member.
template <class Document>
class NestedObject {
public:
    using View = decltype(Document().Root());

    explicit NestedObject(const View& member) {
        if (member.IsObject()) {
            m_object = member;
        } else if (const auto text = member.Text()) {
            m_failed = !m_document.Parse(*text) || !m_document.Root().IsObject();
            m_object = m_failed ? View() : m_document.Root();
        } else {
            m_failed = !member.IsNull();
        }
    }

    /// The member is there, but holds no object.
    bool Failed() const { return m_failed; }
    /// The object, or nothing.
    const View& Object() const { return m_object; }

private:
    Document m_document;
    View m_object;
    bool m_failed = false;
};

}  // namespace vantix
