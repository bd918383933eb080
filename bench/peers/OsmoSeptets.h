// libosmocore's septets, 160 at a time.
#ifndef BENCH_PEERS_OSMOSEPTETS_H
#define BENCH_PEERS_OSMOSEPTETS_H

namespace bench {

/// Letters only: what comes out is text.
void OsmoUnpack160(const unsigned char* octets, unsigned char* septets);
void OsmoPack160(const unsigned char* septets, unsigned char* octets);

} // namespace bench

#endif
