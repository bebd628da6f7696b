# La impresora: un método por función, con textos de Perl, y una excepción cuando algo falla.
#
#   my $impresora = Kestra::Impresora->new;
#   $impresora->abrir_comprobante_fiscal('FC', 'B', { responsabilidad_iva => 'F' });
package Kestra::Impresora;

use strict;
use warnings;
use utf8;
use Carp ();
use Encode ();
use FFI::Platypus;
use FFI::Platypus::Buffer ();
use FFI::Platypus::DL ();
use Kestra::Declaraciones;
use Kestra::ErrorFiscal;
use Kestra::Operador;

use constant UTF_8 => 2;       # modo de Kestra_Textos: textos terminados en cero, en UTF-8
use constant LARGO => 1024;    # de los textos que dicen su propio largo
my $registro;                      # del operador, que vive mientras la biblioteca lo use
my %EXITO   = (EP_Init => 1);    # en las demás funciones EP_, 0
my %NOMBRES = (EP_Init => 'iniciar', EP_Kill => 'cerrar', Kestra_Numeracion => 'ultimo_numero');

# EP_AbrirComprobanteFiscal, abrir_comprobante_fiscal.
sub nombre_del_metodo {
    my ($funcion) = @_;
    return $NOMBRES{$funcion} if $NOMBRES{$funcion};
    my $propio = $funcion =~ s/^[^_]+_//r =~ s/_//gr;
    return lc($propio =~ s/(?<=[a-z])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])|(?<=Z)(?=por)/_/gr);
}

# Lee el Fiscal.ini del directorio de trabajo. Una por programa.
sub new {
    my ($clase, $ruta) = @_;
    $ruta //= $^O eq 'MSWin32' ? 'Kestra.dll' : 'libkestra.so';
    FFI::Platypus::DL::dlopen($ruta, FFI::Platypus::DL::RTLD_PLATYPUS_DEFAULT())
        or Carp::croak(FFI::Platypus::DL::dlerror());
    my $ffi = FFI::Platypus->new(api => 2, lib => [$ruta]);
    my %funciones = Kestra::Declaraciones::declarar($ffi);
    my $propia = bless { ffi => $ffi, funciones => \%funciones }, $clase;
    $funciones{Kestra_Textos}->(UTF_8);
    $propia->iniciar;
    return $propia;
}

# Contesta en lugar de los cuadros, con los métodos que tenga de estos; undef vuelve a los cuadros.
#   mensaje($texto, $titulo, $estilo)             1 Aceptar, 6 Sí, 7 No; estilo: 0 Aceptar, 4 y 36 Sí/No
#   informe_estados($impresora, $fiscal, $filas)  verdadero para mandar otra vez
#   memoria_llena()
sub definir_operador {
    my ($propia, $operador) = @_;
    my $propio = $operador && Kestra::Operador::registro($propia->{ffi}, $operador);
    $propia->{funciones}{Kestra_DefinirOperador}->($propio && (FFI::Platypus::Buffer::scalar_to_buffer($propio->{bytes}))[0]);
    $registro = $propio;
    return;
}

# Los argumentos van en orden, o por nombre en una referencia a un hash al final; los que faltan, en blanco o en cero.
# Lo que la función escribe en un búfer es lo que se devuelve.
sub llamar {
    my ($propia, $funcion, $definidos, @valores) = @_;
    my %nombrados = ref $valores[-1] ? %{ pop @valores } : ();
    my ($bufer, @argumentos);
    for my $argumento (@$definidos) {
        my ($nombre, $tipo, $bytes) = @$argumento;
        if ($tipo eq 'opaque') {
            $bufer = "\0" x (($bytes || LARGO) + 1);
            push @argumentos, (FFI::Platypus::Buffer::scalar_to_buffer($bufer))[0];
        } elsif ($nombre eq 'longitud') {
            push @argumentos, LARGO;
        } else {
            my $nombrado = delete $nombrados{$nombre};
            my $valor = @valores ? shift @valores : $nombrado;
            push @argumentos, $tipo eq 'string' ? Encode::encode('UTF-8', $valor // '') : $valor // 0;
        }
    }
    Carp::croak("$funcion: sobran argumentos: @valores @{[keys %nombrados]}") if @valores || %nombrados;
    my $resultado = $propia->{funciones}{$funcion}->(@argumentos);
    my $operacion = $funcion =~ /^EP_/;
    die $propia->error($funcion) if $operacion ? $resultado != ($EXITO{$funcion} // 0) : $resultado == -1;
    return defined $bufer ? texto($bufer) : $operacion ? () : $resultado;
}

sub texto {
    my ($hasta_el_cero) = unpack 'Z*', $_[0];
    return Encode::decode('UTF-8', $hasta_el_cero);
}

sub error {
    my ($propia, $funcion) = @_;
    my $frase = "\0" x (LARGO + 1);
    my %funciones = %{ $propia->{funciones} };
    $funciones{Kestra_CausaTexto}->((FFI::Platypus::Buffer::scalar_to_buffer($frase))[0], LARGO);
    return Kestra::ErrorFiscal->new(
        llamada => $funcion, desenlace => $funciones{Kestra_Desenlace}->(), causa => $funciones{Kestra_Causa}->(),
        mensaje => texto($frase) || "$funcion: no se pudo hacer.");
}

for my $declarada (@Kestra::Declaraciones::FUNCIONES) {
    my ($funcion, undef, @definidos) = @$declarada;
    next if $funcion eq 'Kestra_DefinirOperador' || $funcion eq 'Kestra_Textos';
    no strict 'refs';
    *{ nombre_del_metodo($funcion) } = sub { my $propia = shift; $propia->llamar($funcion, \@definidos, @_) };
}

1;
