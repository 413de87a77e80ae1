// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <chrono>
#include <memory>

typedef struct ssl_ctx_st SSL_CTX;
typedef struct x509_st X509;
typedef struct evp_pkey_st EVP_PKEY;

namespace zeph {

/// What a certificate says; times are relative to now.
struct CertificateWish {
    QByteArray names = "IP:127.0.0.1,DNS:localhost,DNS:own.test";
    std::chrono::hours validFrom{-1};
    std::chrono::hours validUntil{1};
};

/// An authority that nobody but the test trusts, made anew each time.
class TestAuthority {
public:
    explicit TestAuthority(const char *name = "Authority of a test");

    /// Its own certificate in PEM.
    QString file() const { return m_folder.filePath(QStringLiteral("authority.pem")); }

    /// For a server that shows a certificate signed by this authority and offers `protocols`, such
    /// as "\x02h2".
    std::shared_ptr<SSL_CTX> serverContext(const CertificateWish &wish = {},
                                           const QByteArray &protocols = {}) const;

private:
    using Key = std::unique_ptr<EVP_PKEY, void (*)(EVP_PKEY *)>;
    using Certificate = std::unique_ptr<X509, void (*)(X509 *)>;

    static Key makeKey();
    Certificate sign(EVP_PKEY *key, const char *subject, const CertificateWish &wish,
                     bool isAuthority) const;

    QTemporaryDir m_folder;
    Key m_key;
    Certificate m_certificate;
};

} // namespace zeph
