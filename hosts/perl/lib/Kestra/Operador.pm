# Quien contesta en lugar de los cuadros de la biblioteca, como ella lo llama.
package Kestra::Operador;

use strict;
use warnings;
use utf8;
use Encode ();
use FFI::Platypus::Buffer ();

# Por su nombre, en el orden de KestraOperador.
my @FUNCIONES = (
    [mensaje => '(opaque,string,string,sint32)->sint32', sub {
        my ($ffi, $operador, undef, $texto, $titulo, $estilo) = @_;
        return $operador->mensaje(texto($texto), texto($titulo), $estilo) // 0;
    }],
    [informe_estados => '(opaque,string,string,opaque,sint32)->sint32', sub {
        my ($ffi, $operador, undef, $impresora, $fiscal, $filas, $cantidad) = @_;
        return $operador->informe_estados(texto($impresora), texto($fiscal), filas($ffi, $filas, $cantidad)) ? 1 : 0;
    }],
    [memoria_llena => '(opaque)->void', sub { $_[1]->memoria_llena; return }],
);

# El registro y lo que tiene que vivir mientras la biblioteca lo use.
sub registro {
    my ($ffi, $operador) = @_;
    my (@cierres, @punteros);
    for my $funcion (@FUNCIONES) {
        my ($nombre, $tipo, $llamada) = @$funcion;
        push(@punteros, 0), next unless $operador->can($nombre);
        push @cierres, $ffi->closure(sin_caer($llamada, $ffi, $operador));
        push @punteros, $ffi->cast($tipo => 'opaque', $cierres[-1]);
    }
    my $bytes = pack 'L x![J] J4', 0, 0, @punteros;
    substr($bytes, 0, 4) = pack 'L', length $bytes;
    return { bytes => $bytes, cierres => \@cierres };
}

# Lo que muera se muestra, y vale como No o Cerrar: a través de la biblioteca no puede salir.
sub sin_caer {
    my ($llamada, @primeros) = @_;
    return sub {
        my $dado;
        eval { $dado = $llamada->(@primeros, @_); 1 } or do { warn $@; return 0 };
        return $dado;
    };
}

# Una lista de { grupo, numero, clase, encendida, texto, ayuda }.
sub filas {
    my ($ffi, $puntero, $cantidad) = @_;
    my $largo = length pack 'l4 J2', (0) x 6;
    return [map {
        my %fila;
        @fila{qw(grupo numero clase encendida texto ayuda)} =
            unpack 'l4 J2', FFI::Platypus::Buffer::buffer_to_scalar($puntero + $_ * $largo, $largo);
        $fila{$_} = texto($ffi->cast(opaque => 'string', $fila{$_})) for qw(texto ayuda);
        \%fila;
    } 0 .. $cantidad - 1];
}

sub texto { return Encode::decode('UTF-8', $_[0] // '') }

1;
