// SPDX-License-Identifier: MIT
#pragma once

#include <curl/curl.h>

#include <memory>

namespace zeph {

struct CurlEasyCleanup {
    void operator()(CURL *handle) const { curl_easy_cleanup(handle); }
};
struct CurlMultiCleanup {
    void operator()(CURLM *handle) const { curl_multi_cleanup(handle); }
};
struct CurlShareCleanup {
    void operator()(CURLSH *handle) const { curl_share_cleanup(handle); }
};
struct CurlListCleanup {
    void operator()(curl_slist *list) const { curl_slist_free_all(list); }
};
struct CurlUrlCleanup {
    void operator()(CURLU *handle) const { curl_url_cleanup(handle); }
};
struct CurlTextFree {
    void operator()(char *text) const { curl_free(text); }
};

using CurlEasy = std::unique_ptr<CURL, CurlEasyCleanup>;
using CurlMulti = std::unique_ptr<CURLM, CurlMultiCleanup>;
using CurlShare = std::unique_ptr<CURLSH, CurlShareCleanup>;
using CurlList = std::unique_ptr<curl_slist, CurlListCleanup>;
using CurlUrl = std::unique_ptr<CURLU, CurlUrlCleanup>;
using CurlText = std::unique_ptr<char, CurlTextFree>;

} // namespace zeph
