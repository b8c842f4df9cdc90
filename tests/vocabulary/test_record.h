// A record built by hand for the naming tests, released when it goes out of scope.
#ifndef QRV_TESTS_VOCABULARY_TEST_RECORD_H
#define QRV_TESTS_VOCABULARY_TEST_RECORD_H

#include <quorvalib/quorvalib.h>

#include <initializer_list>
#include <string>

#include "record/material_internal.h"
#include "vocabulary/name_text.h"

namespace vocabulary_test {

class TestRecord {
public:
    TestRecord() : m_(new QrvMaterial) { QrvInitMaterial(m_); }
    ~TestRecord() { QrvReleaseMaterial(m_); }
    TestRecord(const TestRecord&) = delete;
    TestRecord& operator=(const TestRecord&) = delete;

    QrvMaterial* get() { return m_; }
    QrvMaterial* operator->() { return m_; }

    void block(QrvMatParam QrvMaterial::*member, int source, int model,
               std::initializer_list<double> values) {
        QrvMatParam& b = m_->*member;
        delete[] b.Para;
        double* para = qrv::allocateBlock(b, source, model, static_cast<int>(values.size()));
        int i = 0;
        for (double v : values)
            para[i++] = v;
    }

    void text(char* QrvMaterial::*member, const std::string& value) {
        delete[](m_->*member);
        m_->*member = qrv::newText(value.c_str());
    }

private:
    QrvMaterial* m_;
};

// Puts a known text in the shared name text, so that a call that assigns nothing can be seen.
inline std::string primeNameText(const char* marker) {
    return qrv::setNameText(marker);
}

}  // namespace vocabulary_test

#endif
