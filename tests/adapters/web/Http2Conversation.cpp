// SPDX-License-Identifier: MIT
#include "adapters/web/Http2Conversation.h"

#include <nghttp2/nghttp2.h>

#include <algorithm>
#include <cstring>
#include <map>

namespace zeph {

namespace {

struct Stream {
    ReceivedRequest received;
    HttpResponse response = {};
    qsizetype sent = 0;
};

struct Conversation {
    const std::function<HttpResponse(const ReceivedRequest &)> &reply;
    std::map<int32_t, Stream> streams = {};
};

Conversation &of(void *conversation) {
    return *static_cast<Conversation *>(conversation);
}

nghttp2_nv field(const QByteArray &name, const QByteArray &value) {
    const auto bytes = [](const QByteArray &text) {
        return reinterpret_cast<uint8_t *>(const_cast<char *>(text.constData()));
    };
    return {bytes(name), bytes(value), static_cast<std::size_t>(name.size()),
            static_cast<std::size_t>(value.size()), NGHTTP2_NV_FLAG_NONE};
}

int takeHeader(nghttp2_session * /*session*/, const nghttp2_frame *frame, const uint8_t *name,
               std::size_t nameLength, const uint8_t *value, std::size_t valueLength,
               uint8_t /*flags*/, void *conversation) {
    const QByteArray header(reinterpret_cast<const char *>(name),
                            static_cast<qsizetype>(nameLength));
    const QByteArray content(reinterpret_cast<const char *>(value),
                             static_cast<qsizetype>(valueLength));
    ReceivedRequest &received = of(conversation).streams[frame->hd.stream_id].received;
    if (header == ":method") {
        received.method = content;
    } else if (header == ":path") {
        received.target = content;
    } else {
        received.headers.push_back({header, content});
    }
    return 0;
}

ssize_t giveBody(nghttp2_session * /*session*/, int32_t stream, uint8_t *room, std::size_t size,
                 uint32_t *flags, nghttp2_data_source * /*source*/, void *conversation) {
    Stream &answered = of(conversation).streams[stream];
    const QByteArray &body = answered.response.body;
    const auto length = std::min(static_cast<qsizetype>(size), body.size() - answered.sent);
    std::memcpy(room, body.constData() + answered.sent, static_cast<std::size_t>(length));
    answered.sent += length;
    if (answered.sent == body.size()) {
        *flags |= NGHTTP2_DATA_FLAG_EOF;
    }
    return length;
}

int takeFrame(nghttp2_session *session, const nghttp2_frame *frame, void *conversation) {
    const bool isMessage = frame->hd.type == NGHTTP2_HEADERS || frame->hd.type == NGHTTP2_DATA;
    if (!isMessage || (frame->hd.flags & NGHTTP2_FLAG_END_STREAM) == 0) {
        return 0;
    }
    Stream &stream = of(conversation).streams[frame->hd.stream_id];
    stream.response = of(conversation).reply(stream.received);
    const QByteArray status = QByteArray::number(stream.response.status);
    std::vector<nghttp2_nv> fields{field(":status", status)};
    for (const HttpHeader &header : stream.response.headers) {
        fields.push_back(field(header.name, header.value));
    }
    const nghttp2_data_provider body{{}, &giveBody};
    return nghttp2_submit_response(session, frame->hd.stream_id, fields.data(), fields.size(),
                                   &body);
}

bool flush(nghttp2_session *session, LoopbackConnection &connection) {
    const uint8_t *bytes = nullptr;
    ssize_t length = 0;
    while ((length = nghttp2_session_mem_send(session, &bytes)) > 0) {
        if (!connection.write({reinterpret_cast<const char *>(bytes), length})) {
            return false;
        }
    }
    return length == 0;
}

} // namespace

void converseInHttp2(LoopbackConnection &connection,
                     const std::function<HttpResponse(const ReceivedRequest &received)> &reply) {
    nghttp2_session_callbacks *callbacks = nullptr;
    nghttp2_session_callbacks_new(&callbacks);
    nghttp2_session_callbacks_set_on_header_callback(callbacks, &takeHeader);
    nghttp2_session_callbacks_set_on_frame_recv_callback(callbacks, &takeFrame);
    Conversation conversation{reply};
    nghttp2_session *session = nullptr;
    nghttp2_session_server_new(&session, callbacks, &conversation);
    nghttp2_session_callbacks_del(callbacks);
    nghttp2_submit_settings(session, NGHTTP2_FLAG_NONE, nullptr, 0);

    bool isOpen = flush(session, connection);
    while (isOpen) {
        const QByteArray bytes = connection.read();
        const auto *data = reinterpret_cast<const uint8_t *>(bytes.constData());
        isOpen =
            !bytes.isEmpty() &&
            nghttp2_session_mem_recv(session, data, static_cast<std::size_t>(bytes.size())) >= 0 &&
            flush(session, connection);
    }
    nghttp2_session_del(session);
}

} // namespace zeph
