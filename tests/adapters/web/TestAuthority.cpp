// SPDX-License-Identifier: MIT
#include "adapters/web/TestAuthority.h"

#include <QFile>

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include <stdexcept>

namespace zeph {

namespace {

void require(bool isDone) {
    if (!isDone) {
        throw std::runtime_error("the certificate could not be made");
    }
}

void addExtension(X509 *certificate, int kind, const QByteArray &value) {
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
    X509_EXTENSION *extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value.constData());
    require(extension != nullptr);
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
}

void setTime(ASN1_TIME *time, std::chrono::hours fromNow) {
    require(X509_gmtime_adj(time, std::chrono::seconds(fromNow).count()) != nullptr);
}

/// The first protocol of ours that the client offers.
int chooseProtocol(SSL * /*tls*/, const unsigned char **chosen, unsigned char *length,
                   const unsigned char *offered, unsigned int offeredLength, void *ours) {
    const auto &protocols = *static_cast<const QByteArray *>(ours);
    const auto *own = reinterpret_cast<const unsigned char *>(protocols.constData());
    auto *choice = const_cast<unsigned char *>(*chosen);
    const int found = SSL_select_next_proto(
        &choice, length, own, static_cast<unsigned int>(protocols.size()), offered, offeredLength);
    *chosen = choice;
    return found == OPENSSL_NPN_NEGOTIATED ? SSL_TLSEXT_ERR_OK : SSL_TLSEXT_ERR_NOACK;
}

} // namespace

TestAuthority::TestAuthority(const char *name)
    : m_key(makeKey()), m_certificate(sign(m_key.get(), name, {}, true)) {
    const std::unique_ptr<BIO, int (*)(BIO *)> memory(BIO_new(BIO_s_mem()), &BIO_free);
    require(PEM_write_bio_X509(memory.get(), m_certificate.get()) == 1);
    char *text = nullptr;
    const long length = BIO_get_mem_data(memory.get(), &text);
    QFile written(file());
    require(written.open(QIODevice::WriteOnly) && written.write(text, length) == length);
}

std::shared_ptr<SSL_CTX> TestAuthority::serverContext(const CertificateWish &wish,
                                                      const QByteArray &protocols) const {
    const Key key = makeKey();
    const Certificate certificate = sign(key.get(), "Server of a test", wish, false);
    // The context looks at the protocols for as long as it lives.
    const auto kept = std::make_shared<QByteArray>(protocols);
    std::shared_ptr<SSL_CTX> context(SSL_CTX_new(TLS_server_method()),
                                     [kept](SSL_CTX *ended) { SSL_CTX_free(ended); });
    require(SSL_CTX_use_certificate(context.get(), certificate.get()) == 1 &&
            SSL_CTX_use_PrivateKey(context.get(), key.get()) == 1);
    SSL_CTX_set_session_cache_mode(context.get(), SSL_SESS_CACHE_OFF);
    if (!protocols.isEmpty()) {
        SSL_CTX_set_alpn_select_cb(context.get(), &chooseProtocol, kept.get());
    }
    return context;
}

TestAuthority::Key TestAuthority::makeKey() {
    Key key(EVP_EC_gen("P-256"), &EVP_PKEY_free);
    require(key != nullptr);
    return key;
}

TestAuthority::Certificate TestAuthority::sign(EVP_PKEY *key, const char *subject,
                                               const CertificateWish &wish,
                                               bool isAuthority) const {
    Certificate certificate(X509_new(), &X509_free);
    X509 *made = certificate.get();
    X509_set_version(made, X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(made), isAuthority ? 1 : 2);
    setTime(X509_getm_notBefore(made), wish.validFrom);
    setTime(X509_getm_notAfter(made), wish.validUntil);
    X509_NAME_add_entry_by_txt(X509_get_subject_name(made), "CN", MBSTRING_ASC,
                               reinterpret_cast<const unsigned char *>(subject), -1, -1, 0);
    X509_set_issuer_name(made, isAuthority ? X509_get_subject_name(made)
                                           : X509_get_subject_name(m_certificate.get()));
    X509_set_pubkey(made, key);
    if (isAuthority) {
        addExtension(made, NID_basic_constraints, "critical,CA:TRUE");
        addExtension(made, NID_key_usage, "critical,keyCertSign");
    } else {
        addExtension(made, NID_subject_alt_name, wish.names);
    }
    require(X509_sign(made, m_key.get(), EVP_sha256()) > 0);
    return certificate;
}

} // namespace zeph
