#include <fcntl.h>
#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

#include "http/tls.hpp"

namespace puerta {
namespace {

constexpr long kYears = 10L * 365 * 24 * 60 * 60;

template <auto kFree>
struct Freed {
  template <class T>
  void operator()(T* value) const {
    kFree(value);
  }
};
using Key = std::unique_ptr<EVP_PKEY, Freed<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Freed<X509_free>>;
using Number = std::unique_ptr<BIGNUM, Freed<BN_free>>;
using File = std::unique_ptr<std::FILE, Freed<std::fclose>>;

void Require(bool done, const std::string& what) {
  if (!done) throw std::runtime_error(what);
}

bool IsAddress(const std::string& name) {
  return name.find(':') != std::string::npos ||
         (!name.empty() && std::isdigit(static_cast<unsigned char>(name.back())) != 0);
}

// Browsers read the names here, not in the subject.
void AddNames(X509& certificate, const std::vector<std::string>& names) {
  std::string all = "DNS:localhost,IP:127.0.0.1,IP:::1";
  for (const auto& name : names) all += (IsAddress(name) ? ",IP:" : ",DNS:") + name;
  X509_EXTENSION* const extension =
      X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, all.c_str());
  Require(extension != nullptr, "los nombres no sirven para un certificado: " + all);
  X509_add_ext(&certificate, extension, -1);
  X509_EXTENSION_free(extension);
}

void Number64(X509& certificate) {
  const Number number(BN_new());
  BN_rand(number.get(), 64, BN_RAND_TOP_ONE, BN_RAND_BOTTOM_ANY);
  BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(&certificate));
}

Certificate Make(EVP_PKEY& key, const std::vector<std::string>& names) {
  Certificate certificate(X509_new());
  X509_set_version(certificate.get(), 2);
  Number64(*certificate);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -24L * 60 * 60);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), kYears);
  X509_NAME* const name = X509_get_subject_name(certificate.get());
  const std::string words = "kestra-puerta";
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8,
                             reinterpret_cast<const unsigned char*>(words.c_str()), -1, -1, 0);
  X509_set_issuer_name(certificate.get(), name);
  X509_set_pubkey(certificate.get(), &key);
  AddNames(*certificate, names);
  Require(X509_sign(certificate.get(), &key, EVP_sha256()) > 0, "no se pudo firmar el certificado");
  return certificate;
}

// Nobody else may read it from its first moment on.
File Create(const std::string& path, mode_t mode) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  Require(descriptor >= 0, "no se puede crear " + path);
  return File(::fdopen(descriptor, "w"));
}

}  // namespace

void EnsureCertificate(const TlsFiles& files, const std::vector<std::string>& names) {
  if (std::filesystem::exists(files.certificate) && std::filesystem::exists(files.key)) return;
  std::filesystem::remove(files.key);
  std::filesystem::remove(files.certificate);
  const Key key(EVP_EC_gen("P-256"));
  Require(key != nullptr, "no se pudo hacer la clave del certificado");
  const auto certificate = Make(*key, names);
  const auto key_file = Create(files.key, S_IRUSR | S_IWUSR);
  Require(
      PEM_write_PrivateKey(key_file.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) == 1,
      "no se puede escribir " + files.key);
  const auto file = Create(files.certificate, S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH);
  Require(PEM_write_X509(file.get(), certificate.get()) == 1,
          "no se puede escribir " + files.certificate);
}

std::string Fingerprint(const std::string& path) {
  const File file(std::fopen(path.c_str(), "r"));
  Require(file != nullptr, "no se puede leer " + path);
  const Certificate certificate(PEM_read_X509(file.get(), nullptr, nullptr, nullptr));
  Require(certificate != nullptr, path + " no es un certificado");
  std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
  unsigned count = 0;
  X509_digest(certificate.get(), EVP_sha256(), bytes.data(), &count);
  std::string text;
  for (unsigned i = 0; i < count; ++i) {
    if (i > 0) text += ':';
    text += "0123456789ABCDEF"[bytes[i] >> 4];
    text += "0123456789ABCDEF"[bytes[i] & 15];
  }
  return text;
}

}  // namespace puerta
